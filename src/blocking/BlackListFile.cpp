#include "blocking/BlackListFile.h"

#include <QStringDecoder>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A byte that is no text stands in an entry as this unit plus the byte.
constexpr char16_t kStrayByte = 0xDC00;
constexpr uchar kFirstStray = 0x80;
constexpr qsizetype kLongestSequence = 4;
constexpr QByteArrayView kByteOrderMark = "\xEF\xBB\xBF";

/// Appends UTF-8 text; false, with nothing appended, when the bytes are none.
bool appendText(QString &to, QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom);
    const QString text = decoder(bytes);
    if (decoder.hasError())
        return false;
    to += text;
    return true;
}

/// Number of bytes of the character at the beginning of `bytes`; 0 when there is none.
qsizetype appendCharacter(QString &to, QByteArrayView bytes)
{
    for (qsizetype length = 1; length <= std::min(kLongestSequence, bytes.size()); ++length) {
        if (appendText(to, bytes.first(length)))
            return length;
    }
    return 0;
}

QString entryOf(QByteArrayView line)
{
    QString entry;
    if (appendText(entry, line))
        return entry;
    while (!line.isEmpty()) {
        qsizetype taken = appendCharacter(entry, line);
        if (taken == 0) {
            entry += QChar(char16_t(kStrayByte + uchar(line.front())));
            taken = 1;
        }
        line = line.sliced(taken);
    }
    return entry;
}

bool isStrayByte(QChar unit)
{
    return unit.unicode() >= kStrayByte + kFirstStray && unit.unicode() <= kStrayByte + 0xFF;
}

QByteArray bytesOf(QStringView entry)
{
    if (entry.isValidUtf16())
        return entry.toUtf8();
    QByteArray bytes;
    qsizetype textBegin = 0;
    for (qsizetype i = 0; i < entry.size(); ++i) {
        if (entry[i].isHighSurrogate() && i + 1 < entry.size() && entry[i + 1].isLowSurrogate()) {
            ++i;
        } else if (isStrayByte(entry[i])) {
            bytes += entry.sliced(textBegin, i - textBegin).toUtf8();
            bytes += static_cast<char>(entry[i].unicode() - kStrayByte);
            textBegin = i + 1;
        }
    }
    return bytes += entry.sliced(textBegin).toUtf8();
}

} // namespace

QStringList parseBlackList(const QByteArray &content)
{
    QByteArrayView rest = content;
    if (rest.startsWith(kByteOrderMark))
        rest = rest.sliced(kByteOrderMark.size());
    QStringList entries;
    while (!rest.isEmpty()) {
        const auto end = std::find_if(rest.begin(), rest.end(), [](char c) { return c == '\r' || c == '\n'; });
        const qsizetype length = end - rest.begin();
        entries += entryOf(rest.first(length));
        rest = rest.sliced(length);
        if (rest.startsWith("\r\n"))
            rest = rest.sliced(2);
        else if (!rest.isEmpty())
            rest = rest.sliced(1);
    }
    return entries;
}

QByteArray blackListContent(const QStringList &entries)
{
    QByteArray content;
    // The next reading takes one away.
    if (!entries.isEmpty() && entries.first().startsWith(QChar::ByteOrderMark))
        content += kByteOrderMark;
    for (const QString &entry : entries)
        content += bytesOf(entry) + "\r\n";
    return content;
}
