#pragma once

#include <QByteArrayView>
#include <QHash>
#include <QString>

/// The strings of a string file by id. One string a line: id, blank, the text in double quotes with \t, \" and \\ as
/// escapes; lines that are empty or begin with # are comments. A line in any other form is left out, and so is an empty
/// text: an id without text is absent. The first of two lines with the same id counts.
QHash<int, QString> parseStringTable(QByteArrayView utf8);
