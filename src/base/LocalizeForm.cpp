#include "base/Numbers.h"
#include "base/Strings.h"
#include "base/step.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QTreeWidget>
#include <QVariant>

namespace {

/// The string whose id is the whole text.
QString stringOf(const QString &idText)
{
    const auto number = numberOf(idText);
    if (!number)
        throw ControlError("text is no string id");
    return LoadResString(roundedToInteger(*number));
}

/// Gives `set` the string that the leading number of a text names, if that number is above 0.
template <typename Setter>
void replaceByLeadingNumber(const QString &text, Setter &&set)
{
    step([&] {
        if (const int id = roundedToInteger(leadingNumber(text)); id > 0)
            set(LoadResString(id));
    });
}

void localizeAction(QAction *action)
{
    step([&] { action->setText(stringOf(action->text())); });
}

void localizeTabs(QTabBar *bar)
{
    for (int i = 0; i < bar->count(); ++i) {
        step([&] { bar->setTabText(i, stringOf(bar->tabData(i).toString())); });
        step([&] { bar->setTabToolTip(i, stringOf(bar->tabToolTip(i))); });
    }
}

void localizeButtons(QToolBar *bar)
{
    for (QAction *button : bar->actions()) {
        if (button->isSeparator())
            continue;
        localizeAction(button);
        step([&] { button->setToolTip(stringOf(button->toolTip())); });
    }
}

void localizeHeader(QTreeWidget *list)
{
    QTreeWidgetItem *header = list->headerItem();
    for (int column = 0; column < list->columnCount(); ++column)
        step([&] { header->setText(column, stringOf(header->data(column, kTagRole).toString())); });
}

void localizeOther(QWidget *control)
{
    replaceByLeadingNumber(control->property(kTag).toString(), [&](const QString &caption) {
        if (auto *button = qobject_cast<QAbstractButton *>(control))
            button->setText(caption);
        else if (auto *frame = qobject_cast<QGroupBox *>(control))
            frame->setTitle(caption);
        else
            throw ControlError("control has no caption");
    });
    replaceByLeadingNumber(control->toolTip(), [&](const QString &toolTip) { control->setToolTip(toolTip); });
}

void localizeControl(QWidget *control)
{
    if (auto *label = qobject_cast<QLabel *>(control))
        step([&] { label->setText(stringOf(label->text())); });
    else if (auto *menu = qobject_cast<QMenu *>(control))
        localizeAction(menu->menuAction());
    else if (auto *tabs = qobject_cast<QTabBar *>(control))
        localizeTabs(tabs);
    else if (auto *bar = qobject_cast<QToolBar *>(control))
        localizeButtons(bar);
    else if (auto *list = qobject_cast<QTreeWidget *>(control))
        localizeHeader(list);
    else if (!qobject_cast<QTabWidget *>(control))
        localizeOther(control);
}

/// The controls of one form: what lies inside windows of their own (documents, dialogs) belongs to those.
void localizeControlsOf(QObject *owner)
{
    for (QObject *child : owner->findChildren<QObject *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (auto *action = qobject_cast<QAction *>(child)) {
            localizeAction(action);
        } else if (auto *control = qobject_cast<QWidget *>(child)) {
            const bool isForm = control->isWindow() || qobject_cast<QMdiSubWindow *>(control);
            if (isForm && !qobject_cast<QMenu *>(control))
                continue;
            localizeControl(control);
            localizeControlsOf(control);
        }
    }
}

} // namespace

void LocalizeForm(QWidget *form)
{
    step([&] {
        const auto tag = numberOf(form->property(kTag).toString());
        if (!tag)
            throw ControlError("window without a string id");
        if (const int id = roundedToInteger(*tag); id != -1)
            form->setWindowTitle(LoadResString(id));
    });
    localizeControlsOf(form);
}
