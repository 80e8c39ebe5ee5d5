#pragma once

#include "base/Strings.h"
#include "base/step.h"

#include <QString>

namespace controls {

/// A text of the controls' own (ids 20200 to 20229), such as an accessible name. Empty when the table lacks it: a
/// control works without its names.
inline QString ownText(int id)
{
    QString text;
    step([&] { text = LoadResString(id); });
    return text;
}

/// A text from a page as one line that can be drawn: blanks in place of line breaks and tabs, and no more than `limit`
/// characters, since the cost of laying out a text grows with its length and pages send titles of a megabyte.
inline QString drawableLine(const QString &text, int limit)
{
    QString line = text.left(limit);
    for (QChar &c : line) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            c = u' ';
    }
    if (text.size() > limit)
        line += QChar(0x2026);
    return line;
}

/// The same for a tooltip. Text of a page must never be taken for markup, so it is escaped. A tooltip with markup
/// breaks its lines early, so a text that fits into one is held together.
inline QString drawableToolTip(const QString &text)
{
    constexpr int kLimit = 600;
    constexpr int kOneLine = 80;
    if (text.isEmpty())
        return {};
    const QString frame = text.size() > kOneLine ? QStringLiteral("<span>%1</span>")
                                                 : QStringLiteral("<p style='white-space:pre;margin:0'>%1</p>");
    return frame.arg(drawableLine(text, kLimit).toHtmlEscaped());
}

} // namespace controls
