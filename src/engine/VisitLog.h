#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <memory>
#include <vector>

namespace engine {

struct Visit
{
    QString address;
    QString title;
    QDateTime time;
};

/// The file of visits (SQLite): address, title and time of every page that was opened. Writes are gathered and go out
/// together a moment later and at the latest in the destructor; a file that cannot be opened costs the history and
/// nothing else.
class VisitLog : public QObject
{
    Q_OBJECT
public:
    explicit VisitLog(const QString &file, QObject *parent = nullptr);
    ~VisitLog() override;

    /// A page was opened. Only http, https, ftp and file addresses are kept; a password in the address is not.
    void addVisit(const QString &address, const QString &title);
    /// The title of the page's latest visit became known later.
    void setTitle(const QString &address, const QString &title);
    /// Visits in [from, to), latest first, at most `limit`.
    std::vector<Visit> visits(const QDateTime &from, const QDateTime &to, int limit = 100000);
    /// Addresses whose address or title contains `text` (ignoring case), most visited first.
    std::vector<Visit> find(const QString &text, int limit);
    void remove(const QString &address);
    void clear();
    /// Writes what is still in memory.
    void flush();

signals:
    void changed();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace engine
