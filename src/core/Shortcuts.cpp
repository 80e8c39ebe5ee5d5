#include "core/Shortcuts.h"

#include "core/frmMainCommands.h"

#include "controls/PopupMenu.h"
#include "core/state/ProcessFlags.h"

#include <QAction>
#include <QKeySequence>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// What the keyboard hook serves already.
bool isHooked(const QKeySequence &keys)
{
    static const QList<QKeySequence> kHooked{QKeySequence(u"Ctrl+N"_s), QKeySequence(u"Ctrl+O"_s),
                                             QKeySequence(u"F9"_s)};
    return kHooked.contains(keys);
}

/// Keys that the captions have no room for.
struct FurtherKeys
{
    const char *keys;
    const char16_t *command;
};
constexpr FurtherKeys kFurtherKeys[] = {
    {"F5", u"mnuNavigateRefresh"},        {"Ctrl+R", u"mnuNavigateRefresh"},
    {"Ctrl+F5", u"mnuNavigateRefresh"},   {"Refresh", u"mnuNavigateRefresh"},
    {"Alt+Left", u"mnuNavigateBack"},     {"Back", u"mnuNavigateBack"},
    {"Alt+Right", u"mnuNavigateForward"}, {"Forward", u"mnuNavigateForward"},
    {"Stop", u"mnuNavigateStop"},         {"Ctrl+T", u"mnuFileNew"},
    {"Ctrl+U", u"mnuViewSource"},         {"F8", u"mnuContentFillForm"},
};

void addShortcut(QWidget &window, controls::PopupMenu &menu, int item, const QKeySequence &keys, Commands &commands,
                 const ProcessFlags &flags)
{
    auto *action = new QAction(&window);
    action->setShortcut(keys);
    action->setAutoRepeat(false);
    window.addAction(action);
    QObject::connect(action, &QAction::triggered, &commands, [&menu, &commands, &flags, item] {
        if (flags.ShortcutsEnabled && menu.Enabled(item))
            commands.run(menu.ItemKey(item));
    });
}

void addBelow(QWidget &window, controls::PopupMenu &menu, int parent, Commands &commands, const ProcessFlags &flags)
{
    for (const int item : menu.Children(parent)) {
        const QString caption = menu.Caption(item);
        const qsizetype tab = caption.indexOf(u'\t');
        const QKeySequence keys = tab < 0 ? QKeySequence() : QKeySequence(caption.mid(tab + 1));
        if (!keys.isEmpty() && !isHooked(keys))
            addShortcut(window, menu, item, keys, commands, flags);
        addBelow(window, menu, item, commands, flags);
    }
}

} // namespace

void addShortcuts(QWidget &window, controls::PopupMenu &menu, Commands &commands, const ProcessFlags &flags)
{
    addBelow(window, menu, 0, commands, flags);
    for (const auto &[keys, command] : kFurtherKeys)
        addShortcut(window, menu, menu.IndexForKey(QString::fromUtf16(command)),
                    QKeySequence(QString::fromLatin1(keys)), commands, flags);
}
