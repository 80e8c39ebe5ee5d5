#pragma once

#include "engine/PageSetup.h"

#include <QByteArray>
#include <QDateTime>
#include <QPageRanges>
#include <QString>
#include <QUrl>
#include <cstdint>
#include <functional>
#include <memory>

/// What the commands of a document ask of its page, in small parts. Every answer comes exactly once, later and from the
/// event loop, so that it may open windows; it stays away only when the page has been deleted.
namespace engine {

class FormRecord;

class FormFacet
{
public:
    virtual ~FormFacet() = default;
    /// Asks every frame of the page for its inputs and fills what the record has for them; inputs that come while it is
    /// under way are filled too. The number of filled inputs goes to the status text. A fill that is still under way
    /// ends first. Protected fields are left out when `locked`.
    virtual void fill(std::shared_ptr<const FormRecord> record, bool locked) = 0;
};

class ContentFacet
{
public:
    virtual ~ContentFacet() = default;
    /// Puts a box in the place of every Flash element of the page that is there, in all frames, and of those that come
    /// later. Holds until the next load of the page itself.
    virtual void blockFlash() = 0;
    /// The download control value (DLCTL_...) that the page was loaded with.
    virtual int32_t control() const = 0;
    virtual bool isMuted() const = 0;
};

class PrintFacet
{
public:
    virtual ~PrintFacet() = default;
    /// The page as a PDF; empty when it could not be made. Requests are served one after the other.
    virtual void makePdf(const PageSetup &setup, const QPageRanges &ranges,
                         std::function<void(const QByteArray &pdf)> done) = 0;
};

enum class SaveFormat {
    /// An HTML file, and what belongs to it in the folder "<name>_files" beside it.
    Complete,
    /// Everything in one MHTML file.
    SingleFile,
    HtmlOnly,
    /// The bytes of a picture, a PDF or whatever the page is instead of HTML.
    Original,
};

class SaveFacet
{
public:
    virtual ~SaveFacet() = default;
    /// Saves the page to `path`; a failure leaves what was there before. One at a time: a second one fails.
    virtual void save(const QString &path, SaveFormat format, std::function<void(bool saved)> done) = 0;
    virtual bool isSaving() const = 0;
};

struct FindOptions
{
    bool backward = false;
    bool matchCase = false;
    /// Marks every hit, and not only the present one.
    bool highlightAll = true;
    /// The text is still being typed: the present hit stays when it goes on to match.
    bool typing = false;
};

struct FindHits
{
    /// Counted from 1; 0 when there is none.
    int active = 0;
    int count = 0;
};

class FindFacet
{
public:
    virtual ~FindFacet() = default;
    /// Goes to the next hit and marks it. An empty text takes all marks away.
    virtual void find(const QString &text, const FindOptions &options, std::function<void(FindHits)> done) = 0;
    /// Takes the marks away; the present hit stays selected.
    virtual void endFind() = 0;
    virtual void showFindBar() = 0;
    virtual void hideFindBar() = 0;
};

struct PageInfo
{
    enum class Security {
        /// Anybody on the way can read it.
        Open,
        Secure,
        /// Encrypted, with a certificate that only the user holds for good.
        Excepted,
    };

    QString title;
    QString address;
    QUrl url;
    Security security = Security::Open;
    /// When the page had loaded; invalid before.
    QDateTime loaded;

    // What only the page itself knows; empty and -1 where it does not tell.
    QString contentType;
    QString encoding;
    /// "h2", "http/1.1".
    QString protocol;
    /// Bytes of the page without its pictures and other parts.
    qint64 size = -1;
    QDateTime modified;

    /// A page that can be saved as one; anything else is saved as it is.
    bool isHtml() const
    {
        return contentType.isEmpty() || contentType == QLatin1StringView("text/html") ||
               contentType == QLatin1StringView("application/xhtml+xml");
    }
};

class InfoFacet
{
public:
    virtual ~InfoFacet() = default;
    /// What is known without asking the page.
    virtual PageInfo known() const = 0;
    /// All of it. A page that does not answer costs 2 s.
    virtual void read(std::function<void(const PageInfo &info)> done) = 0;
};

} // namespace engine
