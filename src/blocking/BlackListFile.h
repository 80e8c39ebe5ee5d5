#pragma once

#include <QByteArray>
#include <QStringList>

/// The entries in the content of a black list file, one for each line. A line ends with CR LF, LF or CR, the last one
/// also with the file; an empty line is an empty entry. A byte that is not part of UTF-8 text stays in its entry as a
/// code unit of its own, 0xDC80 to 0xDCFF, which no address contains. A byte order mark in front is no part of an
/// entry.
QStringList parseBlackList(const QByteArray &content);

/// The content of a black list file with these entries: the bytes that they were read from, each line ended by CR LF.
QByteArray blackListContent(const QStringList &entries);
