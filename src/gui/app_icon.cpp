#include "gui/app_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace tamrix::gui {
namespace {

QPixmap Paint(int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 64.0, size / 64.0);
    // Pages, cover and spine.
    p.setPen(QPen(QColor("#a9a392"), 1.5));
    p.setBrush(QColor("#f4f1e8"));
    p.drawRoundedRect(QRectF(14, 10, 42, 50), 3, 3);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor("#2f5fa8"));
    p.drawRoundedRect(QRectF(8, 4, 42, 50), 4, 4);
    p.setBrush(QColor("#23487f"));
    p.drawRoundedRect(QRectF(8, 4, 8, 50), 3, 3);
    // The question mark.
    p.setBrush(QColor("#ffd23f"));
    p.drawEllipse(QPointF(32, 26), 13, 13);
    QPainterPath mark;
    mark.moveTo(26.5, 22);
    mark.cubicTo(26.5, 18.5, 29, 16, 32, 16);
    mark.cubicTo(35, 16, 37.5, 18.3, 37.5, 21.3);
    mark.cubicTo(37.5, 24, 35.5, 25.2, 33.8, 26.2);
    mark.cubicTo(32.3, 27.1, 32, 28.2, 32, 29.8);
    mark.lineTo(32, 31);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor("#23487f"), 3.6, Qt::SolidLine, Qt::RoundCap));
    p.drawPath(mark);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor("#23487f"));
    p.drawEllipse(QPointF(32, 35.6), 2.2, 2.2);
    // The conversion arrow.
    p.setPen(QPen(Qt::white, 2));
    p.setBrush(QColor("#2e9d4f"));
    p.drawEllipse(QPointF(48, 48), 12, 12);
    QPainterPath arrow;
    arrow.moveTo(41, 48);
    arrow.lineTo(54, 48);
    arrow.moveTo(49, 43);
    arrow.lineTo(54, 48);
    arrow.lineTo(49, 53);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(Qt::white, 3.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(arrow);
    return pixmap;
}

}  // namespace

QIcon AppIcon() {
    QIcon icon;
    for (int size : {16, 24, 32, 48, 64, 128, 256}) icon.addPixmap(Paint(size));
    return icon;
}

}  // namespace tamrix::gui
