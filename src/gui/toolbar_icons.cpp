#include "gui/toolbar_icons.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace tamrix::gui {
namespace {

constexpr int kSize = 32;  // drawn at twice the toolbar size for sharp scaling

void DrawLetter(QPainter& p, const QString& key) {
    QFont font("DejaVu Serif");
    font.setStyleHint(QFont::Serif);
    font.setPixelSize(24);
    font.setBold(key == "Bold");
    font.setItalic(key == "Italic");
    font.setUnderline(key == "Underline");
    font.setStrikeOut(key == "Strike Through");
    p.setFont(font);
    const QString letter = key == "Bold"        ? "B"
                           : key == "Italic"    ? "I"
                           : key == "Underline" ? "U"
                                                : "S";
    p.drawText(QRect(0, 0, kSize, kSize), Qt::AlignCenter, letter);
}

void DrawLines(QPainter& p, const QString& key) {
    p.setPen(QPen(Qt::black, 2.5));
    const int widths[] = {24, 16, 24, 16, 24};
    for (int i = 0; i < 5; ++i) {
        const int w = widths[i];
        int x = 4;
        if (key == "Right") x = kSize - 4 - w;
        if (key == "Centre") x = (kSize - w) / 2;
        const int y = 6 + i * 5;
        p.drawLine(x, y, x + w, y);
    }
}

void DrawPrinter(QPainter& p) {
    p.setPen(QPen(Qt::black, 1.5));
    p.setBrush(Qt::white);
    p.drawRect(9, 3, 14, 10);  // paper
    p.setBrush(QColor(170, 170, 170));
    p.drawRoundedRect(3, 12, 26, 12, 2, 2);  // body
    p.setBrush(Qt::white);
    p.drawRect(9, 20, 14, 9);  // printed sheet
    p.setPen(QPen(QColor(70, 70, 70), 1));
    p.drawLine(11, 23, 21, 23);
    p.drawLine(11, 26, 19, 26);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(40, 160, 40));
    p.drawEllipse(QPointF(25, 16), 1.5, 1.5);
}

void DrawDisk(QPainter& p) {
    p.setPen(QPen(Qt::black, 1.5));
    p.setBrush(QColor(40, 80, 160));
    QPainterPath body;
    body.moveTo(4, 4);
    body.lineTo(24, 4);
    body.lineTo(28, 8);
    body.lineTo(28, 28);
    body.lineTo(4, 28);
    body.closeSubpath();
    p.drawPath(body);
    p.setBrush(Qt::white);
    p.drawRect(8, 16, 16, 12);  // label
    p.setBrush(QColor(200, 200, 200));
    p.drawRect(9, 4, 13, 8);  // shutter
    p.setBrush(QColor(40, 80, 160));
    p.drawRect(17, 5, 3, 6);
}

}  // namespace

QIcon ToolbarIcon(const QString& key) {
    QPixmap pixmap(kSize, kSize);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    if (key == "Print")
        DrawPrinter(p);
    else if (key == "Save")
        DrawDisk(p);
    else if (key == "Left" || key == "Right" || key == "Centre")
        DrawLines(p, key);
    else
        DrawLetter(p, key);
    p.end();
    return QIcon(pixmap);
}

}  // namespace tamrix::gui
