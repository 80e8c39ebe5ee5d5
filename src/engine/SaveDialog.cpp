#include "engine/SaveDialog.h"

#include "base/Strings.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// Bytes of a proposed name: file systems take 255, and "_files" and an ending have to fit too.
constexpr qsizetype kLongestName = 200;

struct Choice
{
    SaveFormat format;
    int text;
    QLatin1StringView patterns;
    QLatin1StringView suffix;
};

constexpr Choice kChoices[] = {
    {SaveFormat::Complete, 20401, "*.html *.htm"_L1, "html"_L1},
    {SaveFormat::SingleFile, 20402, "*.mhtml *.mht"_L1, "mhtml"_L1},
    {SaveFormat::HtmlOnly, 20403, "*.html *.htm"_L1, "html"_L1},
};

QString filterOf(const Choice &choice)
{
    return u"%1 (%2)"_s.arg(LoadResString(choice.text), choice.patterns);
}

QString cleaned(QString name)
{
    for (QChar &c : name) {
        if (c.category() == QChar::Other_Control || c.category() == QChar::Other_Format || u"/\\:*?\"<>|"_s.contains(c))
            c = u' ';
    }
    name = name.simplified();
    // A name that begins with a dot is hidden.
    while (name.startsWith(u'.') || name.startsWith(u' '))
        name.remove(0, 1);
    while (name.toUtf8().size() > kLongestName)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    while (name.endsWith(u'.') || name.endsWith(u' '))
        name.chop(1);
    return name.trimmed();
}

/// The path with the ending that readers of the format go by. A name that the user has not seen replaces no file.
QString withEnding(const QString &path, const Choice &choice)
{
    const QString pattern = "*."_L1 + QFileInfo(path).suffix().toLower();
    if (QString(choice.patterns).split(u' ').contains(pattern))
        return path;
    QString ended = path + u'.' + choice.suffix;
    for (int number = 2; QFileInfo::exists(ended); ++number)
        ended = u"%1 (%2).%3"_s.arg(path).arg(number).arg(choice.suffix);
    return ended;
}

} // namespace

QString fileNameFor(const PageInfo &info)
{
    const QString last = info.url.fileName();
    const QString titled = cleaned(info.title);
    // A page without a title goes by its address.
    if (!titled.isEmpty() && info.title != info.address)
        return titled;
    for (const QString &name : {cleaned(QFileInfo(last).completeBaseName()), cleaned(info.url.host()), titled}) {
        if (!name.isEmpty())
            return name;
    }
    return u"page"_s;
}

QFileDialog *showSaveDialog(const PageInfo &info, const QString &folder, QWidget *parent,
                            std::function<void(const QString &, SaveFormat)> chosen)
{
    auto *dialog = new QFileDialog(parent, LoadResString(20400), folder);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    if (!info.isHtml()) {
        const QString name = cleaned(info.url.fileName());
        dialog->setNameFilter(LoadResString(20404) + " (*)"_L1);
        dialog->selectFile(name.isEmpty() ? fileNameFor(info) : name);
        QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                         [chosen](const QString &path) { chosen(path, SaveFormat::Original); });
    } else {
        QStringList filters;
        for (const Choice &choice : kChoices)
            filters << filterOf(choice);
        dialog->setNameFilters(filters);
        dialog->setDefaultSuffix(kChoices[0].suffix);
        dialog->selectFile(fileNameFor(info) + u'.' + kChoices[0].suffix);
        QObject::connect(dialog, &QFileDialog::filterSelected, dialog, [dialog, filters](const QString &filter) {
            const Choice &choice = kChoices[std::max<qsizetype>(0, filters.indexOf(filter))];
            dialog->setDefaultSuffix(choice.suffix);
        });
        QObject::connect(dialog, &QFileDialog::fileSelected, dialog, [dialog, filters, chosen](const QString &path) {
            const qsizetype index = filters.indexOf(dialog->selectedNameFilter());
            const Choice &choice = kChoices[std::max<qsizetype>(0, index)];
            chosen(withEnding(path, choice), choice.format);
        });
    }
    dialog->setWindowModality(Qt::NonModal);
    dialog->show();
    return dialog;
}

} // namespace engine
