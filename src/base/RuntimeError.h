#pragma once

#include "base/step.h"

#include <QString>

/// A numbered error of the program's own, for callers that look at the number: 17 (can't perform the operation),
/// 425 (invalid use of an object).
class RuntimeError : public ControlError
{
public:
    RuntimeError(int number, QString source, QString description)
        : ControlError(description.toStdString())
        , m_number(number)
        , m_source(std::move(source))
        , m_description(std::move(description))
    {}
    int number() const { return m_number; }
    QString source() const { return m_source; }
    QString description() const { return m_description; }

private:
    int m_number;
    QString m_source;
    QString m_description;
};
