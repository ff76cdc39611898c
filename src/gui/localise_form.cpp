#include "gui/localise_form.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QVariant>
#include <QWidget>

#include "messages/messages.h"

namespace tamrix::gui {

bool CatalogueTextOf(const QString& value, QString& text) {
    bool numeric = false;
    const long id = value.trimmed().toLong(&numeric);
    if (!numeric) return false;
    text = QString::fromStdString(modMessages::GetMessageString(id)).replace("\r\n", "\n");
    return true;
}

namespace {

void SetCaption(QWidget& widget, const QString& text) {
    if (auto* label = qobject_cast<QLabel*>(&widget))
        label->setText(text);
    else if (auto* button = qobject_cast<QAbstractButton*>(&widget))
        button->setText(text);
    else if (auto* group = qobject_cast<QGroupBox*>(&widget))
        group->setTitle(text);
    else if (auto* edit = qobject_cast<QLineEdit*>(&widget))
        edit->setText(text);
    else if (auto* menu = qobject_cast<QMenu*>(&widget))
        menu->setTitle(text);
    else
        widget.setWindowTitle(text);
}

void LocaliseWidget(QWidget& widget) {
    QString text;
    if (CatalogueTextOf(widget.property(kTagProperty).toString(), text)) SetCaption(widget, text);
    if (CatalogueTextOf(widget.property(kToolTipProperty).toString(), text))
        widget.setToolTip(text);
}

}  // namespace

void LocaliseForm(QWidget& form) {
    QString text;
    if (CatalogueTextOf(form.property(kTagProperty).toString(), text)) form.setWindowTitle(text);
    for (QWidget* child : form.findChildren<QWidget*>()) LocaliseWidget(*child);
    // Menu entries with a numeric caption.
    for (QAction* action : form.findChildren<QAction*>())
        if (CatalogueTextOf(action->text(), text)) action->setText(text);
}

}  // namespace tamrix::gui
