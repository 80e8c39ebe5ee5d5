#include "blocking/BlackListFile.h"

#include <QStringDecoder>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A byte that is no text stands in an entry as this unit plus the byte.
constexpr char16_t kStrayByte = 0xDC00;
constexpr uchar kFirstStray = 0x80;
constexpr QByteArrayView kByteOrderMark = "\xEF\xBB\xBF";

/// Number of bytes of the UTF-8 character at the beginning of `bytes`, by the table of well-formed sequences of the
/// Unicode Standard; 0 when there is none.
qsizetype characterLength(QByteArrayView bytes)
{
    const uchar lead = bytes.front();
    if (lead < 0x80)
        return 1;
    const qsizetype length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length)
        return 0;
    // No sequence is longer than needed, and none stands for a surrogate or a number beyond the last character.
    uchar lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    uchar highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    for (const char byte : bytes.sliced(1, length - 1)) {
        if (uchar(byte) < lowest || uchar(byte) > highest)
            return 0;
        lowest = 0x80;
        highest = 0xBF;
    }
    return length;
}

QString entryOf(QByteArrayView line)
{
    QString entry;
    qsizetype textBegin = 0;
    const auto takeText = [&](qsizetype end) {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom);
        if (end > textBegin)
            entry += decoder(line.sliced(textBegin, end - textBegin));
    };
    for (qsizetype i = 0; i < line.size();) {
        if (const qsizetype length = characterLength(line.sliced(i)); length > 0) {
            i += length;
            continue;
        }
        takeText(i);
        entry += QChar(char16_t(kStrayByte + uchar(line[i])));
        textBegin = ++i;
    }
    takeText(line.size());
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
