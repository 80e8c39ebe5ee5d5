#pragma once

#include <QString>
#include <optional>
#include <vector>

/// How a page wants a date to be written: "MM/YY", "dd.mm.yyyy", and so in other languages ("TT.MM.JJJJ",
/// "JJ/MM/AAAA").
class DatePattern
{
public:
    /// The first pattern in a text.
    static std::optional<DatePattern> in(const QString &text);
    /// Of letters D, M and Y.
    static DatePattern of(QStringView pattern);

    bool hasDay() const { return has(u'D'); }
    bool hasYear() const { return has(u'Y'); }
    /// Of a year with four digits the last two are written where the pattern has room for two only.
    QString write(int day, int month, int year) const;

private:
    struct Part
    {
        /// What stands in front of it.
        QString mark;
        /// D, M or Y.
        QChar what;
        int width;
    };

    bool has(QChar what) const;
    bool isDate() const;

    std::vector<Part> m_parts;
};
