#pragma once

#include <QString>
#include <QUrl>

namespace engine {

/// What a text that was typed, stored or handed over turned out to be.
struct Address
{
    enum class Kind {
        /// `url` can be loaded.
        Page,
        /// A program of the desktop takes `url` (mail, telephone).
        Elsewhere,
        /// No address; `url` is empty.
        Words,
    };
    Kind kind = Kind::Words;
    QUrl url;
};

/// Completes a text to an address: an existing absolute path, "example.com/x", "localhost:8080", "127.0.0.1", "[::1]".
/// A text with blanks or without a dot is no address, and neither is a forbidden one (see mayOpen). An empty text is
/// about:blank.
Address completeAddress(const QString &text);

/// False for the insides of the engine and of this program and for scripts in the clothes of an address
/// ("javascript:", "chrome:", "engine:", "about:" other than blank), which neither users nor pages may open.
bool mayOpen(const QUrl &url);

/// The page of the program's own site that says that `words` are no address.
QUrl addressOfWordsPage(const QString &words);
bool isWordsPage(const QUrl &url);

/// The address in the form in which it is shown, compared and stored: without a password; the words themselves for the
/// page that says that they are no address.
QString shownAddress(const QUrl &url);

} // namespace engine
