#include "desktop/DesktopDialogs.h"
#include "desktop/Paths.h"

#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using desktop::Paths;

/// What is no permission of the owner.
constexpr auto kOthers = QFileDevice::Permissions(0x0077);

class tst_Desktop : public QObject
{
    Q_OBJECT

private slots:
    void pathsOfAUser()
    {
        QTemporaryDir home;
        qunsetenv("CORVANE_HOME");
        qputenv("XDG_DATA_HOME", home.filePath(u"data"_s).toUtf8());
        qputenv("XDG_CONFIG_HOME", home.filePath(u"config"_s).toUtf8());
        qputenv("XDG_CACHE_HOME", home.filePath(u"cache"_s).toUtf8());
        const Paths paths = Paths::fromEnvironment();
        QCOMPARE(paths.programFolder, home.filePath(u"data/Corvane"_s));
        QCOMPARE(QFileInfo(paths.settingsFile).path(), home.filePath(u"config/Corvane"_s));
        QCOMPARE(paths.cacheFolder, home.filePath(u"cache/Corvane"_s));
        for (const QString &folder :
             {paths.programFolder, paths.profileFolder, paths.cacheFolder, QFileInfo(paths.settingsFile).path()}) {
            QVERIFY2(QFileInfo(folder).isDir(), qPrintable(folder));
            QVERIFY(!(QFile::permissions(folder) & kOthers));
        }
    }

    void messageBoxes()
    {
        using namespace desktop;
        // The style, the button that is pressed, or none, and the answer.
        const std::initializer_list<std::tuple<int, QString, int>> cases{
            {0, u"&OK"_s, IDOK},
            {MB_ICONEXCLAMATION, u"&OK"_s, IDOK},
            {MB_YESNO | MB_ICONQUESTION, u"&Yes"_s, IDYES},
            {MB_YESNO | MB_ICONQUESTION, u"&No"_s, IDNO},
            {MB_YESNO | MB_ICONINFORMATION, QString(), IDNO}};
        const QHash<int, QMessageBox::Icon> icons{
            {32, QMessageBox::Question}, {48, QMessageBox::Warning}, {64, QMessageBox::Information}};
        for (const auto &[style, press, answer] : cases) {
            QTimer::singleShot(0, this, [&, style = style, press = press] {
                auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                QVERIFY(box);
                QCOMPARE(box->textFormat(), Qt::PlainText);
                QCOMPARE(box->icon(), icons.value(style & 0xF0, QMessageBox::NoIcon));
                for (QAbstractButton *button : box->buttons()) {
                    if (button->text() == press)
                        button->click();
                }
                if (press.isEmpty())
                    QTest::keyClick(box, Qt::Key_Escape);
            });
            QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
            QCOMPARE(DesktopDialogs().messageBox(nullptr, u"<b>a & b</b>"_s, style), answer);
        }
    }

    void filters()
    {
        const auto qt = desktop::qtFilter;
        QCOMPARE(qt(u"Bitmaps (*.bmp; *.jpg)|*.bmp; *.jpg"_s), u"Bitmaps (*.bmp *.jpg)"_s);
        QCOMPARE(qt(u"Text|*.txt|All files|*.*"_s), u"Text (*.txt);;All files (*)"_s);
        QCOMPARE(qt(u"Text"_s), QString());
    }
};

QTEST_MAIN(tst_Desktop)
#include "tst_desktop.moc"
