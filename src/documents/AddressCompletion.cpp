#include "documents/AddressCompletion.h"

#include "controls/ComboBox.h"
#include "engine/VisitLog.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStandardItemModel>
#include <algorithm>

namespace {

/// Typing rests this long (ms) before the suggestions are looked up, so that no key press waits for them.
constexpr int kPause = 60;
/// Entries of the list that are looked at; older ones are found through the visits.
constexpr int kListEntries = 1000;
/// Free pixels between two lines of the suggestions.
constexpr int kLineGap = 7;

/// The part of an address that people type: without the scheme and "www.".
QStringView typedPart(QStringView address)
{
    for (const QLatin1StringView prefix : {QLatin1StringView("http://"), QLatin1StringView("https://")}) {
        if (address.startsWith(prefix, Qt::CaseInsensitive))
            address = address.mid(prefix.size());
    }
    return address.startsWith(QLatin1StringView("www."), Qt::CaseInsensitive) ? address.mid(4) : address;
}

/// Whether one of the addresses leads where `address` does: one that was typed without its scheme gets http.
bool leadsThere(const QStringList &addresses, QStringView address)
{
    const auto bare = [](QStringView text) {
        constexpr QLatin1StringView kScheme("http://");
        return text.startsWith(kScheme, Qt::CaseInsensitive) ? text.mid(kScheme.size()) : text;
    };
    return std::any_of(addresses.begin(), addresses.end(),
                       [&](const QString &one) { return bare(one) == bare(address); });
}

} // namespace

AddressCompletion::AddressCompletion(controls::ComboBox &bar, engine::VisitLog *visits, QObject *parent)
    : QObject(parent)
    , m_bar(bar)
    , m_visits(visits)
    , m_completer(new QCompleter(this))
    , m_model(new QStandardItemModel(this))
{
    m_completer->setModel(m_model);
    m_completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_completer->setWidget(&bar);
    m_completer->setMaxVisibleItems(kMost);
    m_pause.setSingleShot(true);
    m_pause.setInterval(kPause);
    connect(&m_pause, &QTimer::timeout, this, &AddressCompletion::suggest);
    connect(bar.lineEdit(), &QLineEdit::textEdited, &m_pause, qOverload<>(&QTimer::start));
    connect(&bar, &controls::ComboBox::key, this, [this](int &keyCode) {
        constexpr int kEnter = 13;
        if (keyCode == kEnter) // the address has been sent; nothing may pop up behind it
            hide();
    });
    connect(&bar, &controls::ComboBox::lostFocus, &m_pause, &QTimer::stop);
    connect(m_completer, qOverload<const QString &>(&QCompleter::activated), this, &AddressCompletion::picked);
    // Comes before the completer's own filter, which would let the bar send the typed text first.
    m_completer->popup()->installEventFilter(this);
}

/// Enter on a suggestion picks it, and what was typed is not sent.
bool AddressCompletion::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const int key = static_cast<const QKeyEvent *>(event)->key();
    const QModelIndex chosen = m_completer->popup()->currentIndex();
    if ((key != Qt::Key_Return && key != Qt::Key_Enter) || !chosen.isValid())
        return false;
    const QString address = chosen.data().toString();
    hide();
    emit picked(address);
    return true;
}

void AddressCompletion::hide()
{
    m_pause.stop();
    m_completer->popup()->hide();
}

QStringList AddressCompletion::suggestions(const QString &text) const
{
    QStringList found;
    if (text.trimmed().isEmpty())
        return found;
    const QStringView typed = typedPart(text);
    QStringList inside;
    for (int index = 0; index < qMin(m_bar.ListCount(), kListEntries); ++index) {
        const QString entry = m_bar.List(index);
        if (leadsThere(found, entry) || leadsThere(inside, entry))
            continue;
        if (typedPart(entry).startsWith(typed, Qt::CaseInsensitive))
            found << entry;
        else if (entry.contains(text, Qt::CaseInsensitive))
            inside << entry;
    }
    found += inside;
    if (m_visits && found.size() < kMost) {
        for (const engine::Visit &visit : m_visits->find(text, kMost)) {
            if (!leadsThere(found, visit.address))
                found << visit.address;
        }
    }
    return found.mid(0, kMost);
}

void AddressCompletion::suggest()
{
    if (!m_bar.lineEdit()->hasFocus())
        return;
    m_model->clear();
    const QSize line(0, m_bar.fontMetrics().height() + kLineGap);
    for (const QString &address : suggestions(m_bar.Text())) {
        auto *item = new QStandardItem(address);
        item->setSizeHint(line);
        m_model->appendRow(item);
    }
    if (m_model->rowCount() == 0)
        m_completer->popup()->hide();
    else
        m_completer->complete();
}
