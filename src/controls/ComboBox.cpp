#include "controls/ComboBox.h"

#include "base/step.h"
#include "controls/ImageList.h"
#include "controls/Texts.h"
#include "controls/VirtualKeys.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

namespace controls {

namespace {

constexpr int kIconRole = Qt::UserRole + 1;
/// Lines of the drop-down list before it scrolls.
constexpr int kVisibleItems = 16;
/// Characters of an entry that are drawn. Entries can be whole documents that somebody has pasted.
constexpr int kDrawnLength = 500;

class EntryDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = drawableLine(option->text, kDrawnLength);
    }
};

} // namespace

ComboBox::ComboBox(QWidget *parent)
    : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setMaxVisibleItems(kVisibleItems);
    // The width is the layout's business; measuring every entry would cost more than all the rest.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    // With a place holder QComboBox does not select the first entry that comes into an empty list. An editable box
    // never shows it.
    setPlaceholderText(QStringLiteral(" "));
    if (auto *list = qobject_cast<QListView *>(view()))
        list->setUniformItemSizes(true);
    view()->setItemDelegate(new EntryDelegate(this));
    lineEdit()->setCompleter(nullptr);
    // QComboBox takes a finished edit whose text equals an entry for a pick of that entry.
    disconnect(lineEdit(), SIGNAL(editingFinished()), this, nullptr);

    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        if (!std::exchange(m_editing, true))
            emit beginEdit();
    });
    connect(lineEdit(), &QLineEdit::textChanged, this, [this] { emit textChanged(); });
    connect(this, &QComboBox::activated, this, &ComboBox::pick);
}

QString ComboBox::Text() const
{
    return lineEdit()->text();
}

void ComboBox::setText(const QString &text)
{
    // An equal text is left alone: writing it would move the caret.
    if (text == lineEdit()->text())
        return;
    lineEdit()->setText(text);
    if (!lineEdit()->hasFocus())
        lineEdit()->home(false); // the beginning of an address says whose page it is
}

int ComboBox::ListCount() const
{
    return count();
}

void ComboBox::requireItem(int index) const
{
    if (index < 0 || index >= count())
        throw ControlError("no such entry in the list");
}

QString ComboBox::List(int index) const
{
    requireItem(index);
    return itemText(index);
}

void ComboBox::InsertItem(int index, const QString &text, int icon)
{
    if (index < 0 || index > count())
        throw ControlError("no such place in the list");
    keepEditField([&] {
        insertItem(index, m_images ? m_images->icon(icon) : QIcon(), text);
        setItemData(index, icon, kIconRole);
    });
}

void ComboBox::Clear()
{
    keepEditField([this] { clear(); });
}

int ComboBox::ItemIcon(int index) const
{
    requireItem(index);
    return itemData(index, kIconRole).toInt();
}

void ComboBox::setImageList(const ImageList *images)
{
    m_images = images;
    if (images)
        setIconSize(QSize(images->size(), images->size()));
    for (int i = 0; i < count(); ++i)
        setItemIcon(i, images ? images->icon(ItemIcon(i)) : QIcon());
}

void ComboBox::setCompleter(QCompleter *completer)
{
    lineEdit()->setCompleter(completer);
}

void ComboBox::showPopup()
{
    QComboBox::showPopup();
    // No entry is the current one (see pick), so the list opens at its top, where the newest stand.
    view()->scrollToTop();
}

template <typename Change>
void ComboBox::keepEditField(Change &&change)
{
    QLineEdit &edit = *lineEdit();
    const QString text = edit.text();
    const int caret = edit.cursorPosition();
    const int start = edit.selectionStart();
    const int length = edit.selectionLength();
    const QSignalBlocker quiet(edit);
    change();
    if (edit.text() == text)
        return;
    edit.setText(text);
    if (start < 0)
        edit.setCursorPosition(caret);
    else if (caret == start)
        edit.setSelection(start + length, -length);
    else
        edit.setSelection(start, length);
}

/// The base class has copied the entry into the edit field before it reports a pick.
void ComboBox::pick(int index)
{
    if (index < 0)
        return;
    // Without a current entry no change of the list can reach the edit field, and picking the same one again counts.
    keepEditField([this] { setCurrentIndex(-1); });
    lineEdit()->selectAll();
    const QPointer<ComboBox> alive(this);
    finishEdit();
    if (alive)
        emit listItemPicked();
}

void ComboBox::finishEdit()
{
    if (std::exchange(m_editing, false))
        emit endEdit();
}

bool ComboBox::completionShown() const
{
    const QCompleter *completer = lineEdit()->completer();
    return completer && completer->popup() && completer->popup()->isVisible();
}

void ComboBox::focusInEvent(QFocusEvent *event)
{
    QComboBox::focusInEvent(event);
    if (!std::exchange(m_hasFocus, true))
        emit gotFocus();
}

void ComboBox::focusOutEvent(QFocusEvent *event)
{
    QComboBox::focusOutEvent(event);
    // Some platforms activate the window of the list, and tell nothing of a popup.
    if (event->reason() == Qt::PopupFocusReason || view()->isVisible() || completionShown())
        return;
    if (!std::exchange(m_hasFocus, false))
        return;
    const QPointer<ComboBox> alive(this);
    finishEdit();
    if (!alive)
        return;
    // Who comes back from another window goes on where the caret was.
    if (event->reason() != Qt::ActiveWindowFocusReason)
        lineEdit()->home(false);
    emit lostFocus();
}

void ComboBox::keyPressEvent(QKeyEvent *event)
{
    const QPointer<ComboBox> alive(this);
    int code = virtualKey(*event);
    if (code != 0) {
        emit key(code, shiftState(event->modifiers()));
        if (!alive)
            return;
        if (code == 0) {
            event->accept();
            return;
        }
    }
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        // Stepping through a closed list would be a pick for each step.
        showPopup();
        event->accept();
        return;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        event->ignore();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        QComboBox::keyPressEvent(event);
        // Not accepted here: a completer that shows its list has to see this key too.
        if (alive)
            finishEdit();
        return;
    default:
        QComboBox::keyPressEvent(event);
    }
}

void ComboBox::wheelEvent(QWheelEvent *event)
{
    // The base class would step through the entries, each step a pick.
    event->ignore();
}

} // namespace controls
