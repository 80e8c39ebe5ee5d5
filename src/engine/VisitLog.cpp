#include "engine/VisitLog.h"

#include "base/Files.h"

#include <QAtomicInteger>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTimer>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

constexpr int kGatherMs = 1000;
/// Longer addresses are data in disguise, longer titles help nobody.
constexpr int kLongestAddress = 4096;
constexpr int kLongestTitle = 1000;

/// The address as it is kept, or empty for one that is not kept at all.
QString keptAddress(const QString &address)
{
    if (address.size() > kLongestAddress)
        return {};
    const QUrl url(address);
    const QString scheme = url.scheme();
    if (scheme != "http"_L1 && scheme != "https"_L1 && scheme != "ftp"_L1 && scheme != "file"_L1)
        return {};
    return url.toString(QUrl::FullyEncoded | QUrl::RemovePassword);
}

/// Never a null text, which the file would refuse as a missing value.
QString keptTitle(const QString &title)
{
    return title.isEmpty() ? u""_s : title.left(kLongestTitle);
}

/// What `find` compares: SQLite itself folds the case of ASCII letters only.
QString folded(const QString &address, const QString &title)
{
    return (address + u'\n' + title).toCaseFolded();
}

} // namespace

struct VisitLog::Private
{
    struct Waiting
    {
        Visit visit;
        /// The title of a visit that is in the file already.
        bool onlyTitle = false;
    };

    QString file;
    QString connection;
    std::vector<Waiting> waiting;
    QTimer gather;
    bool tried = false;
    bool open = false;

    QSqlDatabase db() const { return QSqlDatabase::database(connection, false); }
    bool ready();
    bool prepare(bool &damaged);
    void close();
    std::vector<Visit> rows(QSqlQuery &query) const;
};

/// Opens the file at the first need. A damaged file is moved aside and a new one begun; a second failure is final.
bool VisitLog::Private::ready()
{
    if (tried)
        return open;
    tried = true;
    bool damaged = false;
    open = prepare(damaged);
    if (open || !damaged)
        return open;
    close();
    if (!keepAside(file))
        return false;
    QFile::remove(file + "-wal"_L1);
    QFile::remove(file + "-shm"_L1);
    open = prepare(damaged);
    return open;
}

bool VisitLog::Private::prepare(bool &damaged)
{
    QDir().mkpath(QFileInfo(file).absolutePath());
    // Made here so that it is the owner's alone from its first byte on; SQLite gives its side files the same rights.
    if (!QFile::exists(file)) {
        QFile fresh(file);
        if (!fresh.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
            return false;
    } else {
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
    }
    QSqlDatabase base = QSqlDatabase::contains(connection) ? db() : QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
    base.setDatabaseName(file);
    base.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=1000"_s);
    if (!base.open())
        return false;
    for (const char *statement :
         {"PRAGMA journal_mode=WAL", "PRAGMA synchronous=NORMAL", "PRAGMA secure_delete=ON",
          ("CREATE TABLE IF NOT EXISTS visits (id INTEGER PRIMARY KEY, address TEXT NOT NULL, title TEXT NOT NULL,"
           " time INTEGER NOT NULL, folded TEXT NOT NULL)"),
          "CREATE INDEX IF NOT EXISTS visits_time ON visits (time)",
          "CREATE INDEX IF NOT EXISTS visits_address ON visits (address)", "SELECT id FROM visits LIMIT 1"}) {
        QSqlQuery query(base);
        if (query.exec(QLatin1StringView(statement)))
            continue;
        // SQLITE_CORRUPT 11, SQLITE_NOTADB 26, SQLITE_ERROR 1 for a table of another shape; the upper bytes refine
        // them.
        const int code = query.lastError().nativeErrorCode().toInt() & 0xff;
        damaged = code == 11 || code == 26 || code == 1;
        return false;
    }
    return true;
}

void VisitLog::Private::close()
{
    if (!QSqlDatabase::contains(connection))
        return;
    db().close();
    QSqlDatabase::removeDatabase(connection);
}

std::vector<Visit> VisitLog::Private::rows(QSqlQuery &query) const
{
    std::vector<Visit> found;
    if (query.exec()) {
        while (query.next())
            found.push_back({query.value(0).toString(), query.value(1).toString(),
                             QDateTime::fromMSecsSinceEpoch(query.value(2).toLongLong())});
    }
    return found;
}

VisitLog::VisitLog(const QString &file, QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    static QAtomicInteger<int> count;
    d->file = file;
    d->connection = u"visits-%1"_s.arg(count++);
    d->gather.setSingleShot(true);
    d->gather.setInterval(kGatherMs);
    connect(&d->gather, &QTimer::timeout, this, &VisitLog::flush);
}

VisitLog::~VisitLog()
{
    blockSignals(true);
    flush();
    d->close();
}

void VisitLog::addVisit(const QString &address, const QString &title)
{
    const QString kept = keptAddress(address);
    if (kept.isEmpty())
        return;
    d->waiting.push_back({{kept, keptTitle(title), QDateTime::currentDateTime()}});
    if (!d->gather.isActive())
        d->gather.start();
}

void VisitLog::setTitle(const QString &address, const QString &title)
{
    const QString kept = keptAddress(address);
    if (kept.isEmpty())
        return;
    for (auto entry = d->waiting.rbegin(); entry != d->waiting.rend(); ++entry) {
        if (entry->visit.address == kept) {
            entry->visit.title = keptTitle(title);
            return;
        }
    }
    d->waiting.push_back({{kept, keptTitle(title), {}}, true});
    if (!d->gather.isActive())
        d->gather.start();
}

void VisitLog::flush()
{
    d->gather.stop();
    if (d->waiting.empty())
        return;
    const std::vector<Private::Waiting> waiting = std::exchange(d->waiting, {});
    if (!d->ready())
        return;
    QSqlDatabase base = d->db();
    base.transaction();
    {
        QSqlQuery add(base);
        add.prepare(u"INSERT INTO visits (address, title, time, folded) VALUES (?, ?, ?, ?)"_s);
        QSqlQuery rename(base);
        rename.prepare(u"UPDATE visits SET title = ?, folded = ? WHERE id ="
                       " (SELECT id FROM visits WHERE address = ? ORDER BY time DESC, id DESC LIMIT 1)"_s);
        for (const auto &[visit, onlyTitle] : waiting) {
            QSqlQuery &query = onlyTitle ? rename : add;
            const QString fold = folded(visit.address, visit.title);
            const QVariantList values =
                onlyTitle ? QVariantList{visit.title, fold, visit.address}
                          : QVariantList{visit.address, visit.title, visit.time.toMSecsSinceEpoch(), fold};
            for (int i = 0; i < values.size(); ++i)
                query.bindValue(i, values[i]);
            query.exec();
        }
    }
    base.commit();
    emit changed();
}

std::vector<Visit> VisitLog::visits(const QDateTime &from, const QDateTime &to, int limit)
{
    flush();
    if (!d->ready())
        return {};
    QSqlQuery query(d->db());
    query.setForwardOnly(true);
    query.prepare(u"SELECT address, title, time FROM visits WHERE time >= ? AND time < ?"
                  " ORDER BY time DESC, id DESC LIMIT ?"_s);
    query.addBindValue(from.toMSecsSinceEpoch());
    query.addBindValue(to.toMSecsSinceEpoch());
    query.addBindValue(limit);
    return d->rows(query);
}

std::vector<Visit> VisitLog::find(const QString &text, int limit)
{
    flush();
    if (!d->ready())
        return {};
    QSqlQuery query(d->db());
    query.setForwardOnly(true);
    // Beside max() the other columns are those of the latest visit.
    query.prepare(u"SELECT address, title, max(time) FROM visits WHERE instr(folded, ?) > 0 GROUP BY address"
                  " ORDER BY count(*) DESC, max(time) DESC LIMIT ?"_s);
    query.addBindValue(text.toCaseFolded());
    query.addBindValue(limit);
    return d->rows(query);
}

void VisitLog::remove(const QString &address)
{
    flush();
    if (!d->ready())
        return;
    const QString kept = keptAddress(address);
    QSqlQuery query(d->db());
    query.prepare(u"DELETE FROM visits WHERE address = ?"_s);
    query.addBindValue(kept.isEmpty() ? address : kept);
    query.exec();
    emit changed();
}

void VisitLog::clear()
{
    d->waiting.clear();
    d->gather.stop();
    if (!d->ready())
        return;
    QSqlQuery query(d->db());
    for (const char *statement : {"DELETE FROM visits", "VACUUM", "PRAGMA wal_checkpoint(TRUNCATE)"})
        query.exec(QLatin1StringView(statement));
    emit changed();
}

} // namespace engine
