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

/// A text from a page as one line that can be drawn: no line breaks, and no more than `limit` characters, since the
/// cost of laying out a text grows with its length and pages send titles of a megabyte.
inline QString drawableLine(const QString &text, int limit)
{
    const bool tooLong = text.size() > limit;
    const QString line = (tooLong ? text.left(limit) : text).simplified();
    return tooLong ? line + QChar(0x2026) : line;
}

/// The same for a tooltip. Text of a page must never be taken for markup, so it is escaped.
inline QString drawableToolTip(const QString &text)
{
    constexpr int kLimit = 600;
    if (text.isEmpty())
        return {};
    return QStringLiteral("<span>%1</span>").arg(drawableLine(text, kLimit).toHtmlEscaped());
}

} // namespace controls
