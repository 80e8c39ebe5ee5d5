#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>
#include <optional>

/// The text form of the settings file, UTF-8:
///
///     [Corvane/General]
///     LoadAction=2
///     TrayPassword=" with blanks, and\na second line "
///
/// A value is everything behind the first "=" less the blanks around it, so that commas, semicolons, percent signs and
/// backslashes in a value typed by hand mean themselves. Only a text that such a line cannot hold (blanks at an end,
/// line breaks and other control characters, a quote in front) stands in quotes, with \\, \", \n, \r, \t and \uXXXX as
/// escapes. Quotes with anything else inside them are part of the value. Comments and lines in no known form stay in
/// the file, above the keys of their section.
///
/// Keys are "section/key"; a name has no "=", line break or bracket.
namespace settingsformat {

using Map = QMap<QString, QVariant>;

/// Nothing when the file is not text (no UTF-8, or a zero byte in it).
std::optional<Map> read(const QByteArray &content);
QByteArray write(const Map &map);

} // namespace settingsformat
