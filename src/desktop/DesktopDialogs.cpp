#include "desktop/DesktopDialogs.h"

#include "base/Strings.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

constexpr int kButtonBits = 0xF;
constexpr int kIconBits = 0xF0;
constexpr int MB_OKCANCEL = 1;
constexpr int MB_ICONHAND = 16;

QMessageBox::Icon iconOf(int style)
{
    switch (style & kIconBits) {
    case MB_ICONHAND:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONEXCLAMATION:
        return QMessageBox::Warning;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

/// Buttons by their number in the answer, with the ids of their texts.
void addButtons(QMessageBox &box, int style)
{
    switch (style & kButtonBits) {
    case MB_YESNO:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.button(QMessageBox::Yes)->setText(LoadResString(113));
        box.button(QMessageBox::No)->setText(LoadResString(114));
        break;
    case MB_OKCANCEL:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        box.button(QMessageBox::Cancel)->setText(LoadResString(112));
        box.button(QMessageBox::Ok)->setText(LoadResString(111));
        break;
    default:
        box.setStandardButtons(QMessageBox::Ok);
        box.button(QMessageBox::Ok)->setText(LoadResString(111));
        break;
    }
}

int answerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return IDYES;
    case QMessageBox::No:
        return IDNO;
    case QMessageBox::Cancel:
        return IDCANCEL;
    default:
        return IDOK;
    }
}

/// Extension of the first pattern of a filter; empty when it has none.
QString firstExtension(const QString &filter)
{
    static const QRegularExpression extension(u"\\|\\*\\.(\\w+)"_s);
    return extension.match(filter).captured(1);
}

} // namespace

int DesktopDialogs::messageBox(QWidget *owner, const QString &prompt, int style, const QString &title)
{
    QMessageBox box(owner);
    box.setWindowTitle(title.isEmpty() ? LoadResString(100) : title);
    // A prompt may quote a page or a file name, which is never markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(prompt);
    box.setIcon(iconOf(style));
    addButtons(box, style);
    return answerOf(box.exec());
}

QString DesktopDialogs::openFile(QWidget *owner, const QString &title, const QString &filter)
{
    return QFileDialog::getOpenFileName(owner, title, {}, qtFilter(filter));
}

QString DesktopDialogs::saveFile(QWidget *owner, const QString &title, const QString &proposedPath,
                                 const QString &filter)
{
    QFileDialog dialog(owner, title, {}, qtFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(firstExtension(filter));
    if (!proposedPath.isEmpty())
        dialog.selectFile(proposedPath);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

QString qtFilter(const QString &filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList result;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        for (QString &pattern : patterns) {
            pattern = pattern.trimmed();
            // Here a name without a dot is a name, too.
            if (pattern == u"*.*")
                pattern = u"*"_s;
        }
        // The desktop's dialogs show the patterns by themselves.
        const QString name = parts[i].section(u'(', 0, 0).trimmed();
        result += u"%1 (%2)"_s.arg(name, patterns.join(u' '));
    }
    return result.join(u";;"_s);
}

} // namespace desktop
