#pragma once

#include "engine/FormRecord.h"

#include <QByteArray>
#include <QStringList>
#include <map>
#include <optional>

namespace engine {

/// What the script of a frame says in one of its requests.
struct FrameReport
{
    /// By document: 0 is that of the frame itself, and those of its own frames have other numbers.
    std::map<int, std::vector<FormInput>> inputs;
    /// The last request of a look at the frame; only that one has the rest.
    bool isLast = false;
    /// The way from the page to this frame: empty for the page itself, "0.2" for the third frame of its first one, "?"
    /// for a frame in no list, which then has proved by itself that the user sees its inputs.
    QString path;
    /// Paths of the frames in it that the user can see.
    QStringList shown;
    bool isSecureContext = false;
    /// Origin of its address, and those of the frames around it.
    QString from;
    QStringList around;

    /// A line of JSON for all but the inputs, then a line for each of these, of parts between tabs. Nothing for what is
    /// no report. Lengths and numbers are cut to what the script keeps to.
    static std::optional<FrameReport> parse(const QByteArray &data);
};

/// The answers as the script reads them.
QByteArray toJson(const std::vector<FormAnswer> &answers);

} // namespace engine
