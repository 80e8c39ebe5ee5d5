#include "engine/webengine/fill/FrameReport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

constexpr int kLongest = 100;
constexpr int kMostOptions = 300;
constexpr int kMostInputs = 500;
constexpr int kMostFrames = 1000;

QString text(const QJsonValue &value)
{
    return value.toString().left(kLongest);
}

FormInput input(const QJsonObject &told)
{
    FormInput found;
    found.number = told["n"_L1].toInt();
    found.type = text(told["type"_L1]);
    found.name = text(told["name"_L1]);
    found.id = text(told["id"_L1]);
    found.autocomplete = text(told["auto"_L1]);
    found.label = text(told["label"_L1]);
    found.ariaLabel = text(told["aria"_L1]);
    found.placeholder = text(told["hint"_L1]);
    found.maxLength = told["most"_L1].toInt();
    found.value = text(told["value"_L1]);
    const QJsonArray options = told["options"_L1].toArray();
    for (qsizetype i = 0; i < std::min<qsizetype>(options.size(), kMostOptions); ++i)
        found.options.push_back({text(options[i][0]), text(options[i][1])});
    return found;
}

QStringList list(const QJsonValue &value)
{
    QStringList found;
    for (const QJsonValue one : value.toArray()) {
        if (found.size() == kMostFrames)
            break;
        found << one.toString();
    }
    return found;
}

} // namespace

std::optional<FrameReport> FrameReport::parse(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return {};
    FrameReport report;
    const QJsonArray inputs = document["inputs"_L1].toArray();
    for (qsizetype i = 0; i < std::min<qsizetype>(inputs.size(), kMostInputs); ++i) {
        const QJsonObject told = inputs[i].toObject();
        report.inputs[told["doc"_L1].toInt()].push_back(input(told));
    }
    report.isLast = document["last"_L1].toBool();
    report.path = document["path"_L1].toString();
    report.shown = list(document["shown"_L1]);
    report.isSecureContext = document["secure"_L1].toBool();
    report.from = document["from"_L1].toString();
    report.around = list(document["around"_L1]);
    return report;
}

QByteArray toJson(const std::vector<FormAnswer> &answers)
{
    QJsonArray all;
    for (const FormAnswer &answer : answers)
        all.append(QJsonArray{answer.number, answer.value});
    return QJsonDocument(all).toJson(QJsonDocument::Compact);
}

} // namespace engine
