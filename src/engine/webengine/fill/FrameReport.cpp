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

/// The parts of an input's line; the alternatives of a list follow, each as its value and its text.
enum Part { Number, Document, Type, Name, Id, Autocomplete, Label, AriaLabel, Placeholder, MaxLength, Value, Options };

FormInput input(const QList<QStringView> &told)
{
    const auto text = [&told](qsizetype part) { return told[part].left(kLongest).toString(); };
    FormInput found;
    found.number = told[Number].toInt();
    found.type = text(Type);
    found.name = text(Name);
    found.id = text(Id);
    found.autocomplete = text(Autocomplete);
    found.label = text(Label);
    found.ariaLabel = text(AriaLabel);
    found.placeholder = text(Placeholder);
    found.maxLength = told[MaxLength].toInt();
    found.value = text(Value);
    const qsizetype last = std::min<qsizetype>(told.size() - 1, Options + 2 * kMostOptions);
    for (qsizetype i = Options; i < last; i += 2)
        found.options.push_back({text(i), text(i + 1)});
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

std::optional<FrameReport> FrameReport::parse(const QByteArray &data)
{
    const QString all = QString::fromUtf8(data);
    const QList<QStringView> lines = QStringView(all).split(u'\n');
    const QJsonDocument document = QJsonDocument::fromJson(lines[0].toUtf8());
    if (!document.isObject())
        return {};
    FrameReport report;
    for (qsizetype i = 1; i < std::min<qsizetype>(lines.size(), 1 + kMostInputs); ++i) {
        const QList<QStringView> told = lines[i].split(u'\t');
        if (told.size() < Options)
            return {};
        report.inputs[told[Document].toInt()].push_back(input(told));
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
