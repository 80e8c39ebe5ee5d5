#include "base/Files.h"
#include "base/step.h"
#include "core/state/SettingsStore.h"
#include "core/state/SettingsTable.h"
#include "desktop/Paths.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The sections in their order.
constexpr const char *kSections[] = {"General", "History", "Sites",   "Sidebar", "CustomLinks",
                                     "Skins",   "Control", "Content", "Forms",   "Popup"};

class tst_SettingsTable : public QObject
{
    Q_OBJECT

private slots:
    void everyKey()
    {
        // Every key of the store, section by section in the order in which they are written: name, type, default, menu
        // entry. "window" stands for the window's own value.
        const QString expected = QString::fromUtf8(readFile(QStringLiteral(EXPECTED_KEYS)).value_or(QByteArray()));
        const auto joined = [](const QStringList &parts) { return u"    "_s + parts.join(u' ').trimmed(); };
        const char *const windowTypes[] = {"Boolean", "Integer", "Single", "Text"};
        const char *const fieldTypes[] = {"Boolean", "Integer", "Color", "Text", "Integer"};
        QStringList lines{u"Settings"_s};
        for (const WindowKey &key : windowKeys())
            lines += joined({QString::fromLatin1(key.key), QString::fromLatin1(windowTypes[int(key.type)]),
                             key.defaultText ? QString::fromLatin1(key.defaultText) : u"window"_s});
        for (const char *section : kSections) {
            lines += QString::fromLatin1(section);
            for (const SettingKey &key : settingKeys(section))
                lines += joined({QString::fromLatin1(key.key), QString::fromLatin1(fieldTypes[key.field.index()]),
                                 defaultOf(key, m_paths), QString::fromLatin1(key.menuKey)});
        }
        QCOMPARE(lines.join(u'\n') + u'\n', expected);
    }

    void emptyFontName()
    {
        SettingsStore store(m_folder.filePath(u"empty.ini"_s));
        for (const SettingKey &key : settingKeys("Sidebar"))
            store.SaveSetting(appTitle(), u"Sidebar"_s, QString::fromLatin1(key.key), QString());
        store.SaveSetting(appTitle(), u"Sites"_s, u"SitesHome1"_s, QString());
        Settings settings;
        readKey(store, m_paths, settingKeys("Sidebar")[1], settings);
        QCOMPARE(settings.QNFontName, u"Arial"_s);
        readKey(store, m_paths, settingKeys("Sites")[0], settings);
        QCOMPARE(settings.SitesHome1, QString());
    }

    void booleans()
    {
        const auto read = [](const QString &text) {
            int result = -1;
            step([&] { result = toBoolean(text); });
            return result;
        };
        for (const QString &yes : {u" trUE "_s, u"-1"_s, u"0.1"_s, u"&H2"_s})
            QVERIFY2(read(yes) == 1, qPrintable(yes));
        for (const QString &no : {u"fALSE"_s, u" 0.0 "_s, u"&H0"_s})
            QVERIFY2(read(no) == 0, qPrintable(no));
        for (const QString &none : {u""_s, u" "_s, u"yes"_s, u"True."_s, u"Tru"_s, u"1x"_s, u"nan"_s, u"inf"_s})
            QVERIFY2(read(none) == -1, qPrintable(none));
    }

    void numbers()
    {
        const auto read = [](const QString &text, auto convert) {
            std::optional<int> result;
            step([&] { result = convert(text); });
            return result;
        };
        const auto is = [&](const QString &text, std::optional<int> integer, std::optional<int> asLong) {
            QVERIFY2(read(text, toInteger) == integer && read(text, toLong) == asLong, qPrintable(text));
        };
        is(u" +7 "_s, 7, 7);
        is(u"2.5"_s, 2, 2); // halves go to the even number
        is(u"3.5"_s, 4, 4);
        is(u"-0.5"_s, 0, 0);
        is(u".6"_s, 1, 1);
        is(u"&hfF"_s, 255, 255);
        is(u"&HFFFFFFFE"_s, -2, -2);
        is(u"-32768"_s, -32768, -32768);
        is(u"-32769"_s, {}, -32769);
        is(u"32767.49"_s, 32767, 32767);
        is(u"32767.5"_s, {}, 32768);
        is(u"2147483647"_s, {}, 2147483647);
        for (const QString &bad :
             {u"2147483648"_s, u"-2147483649"_s, u"1e400"_s, u" "_s, u"-"_s, u"1 2"_s, u"12px"_s, u"0x10"_s, u"1e"_s,
              u"1,5"_s, u"&H"_s, u"&H-1"_s, u"&H123456789"_s, u"nan"_s, u"True"_s, u"\u0661"_s})
            is(bad, {}, {});
    }

private:
    QTemporaryDir m_folder;
    desktop::Paths m_paths = [] {
        desktop::Paths paths;
        paths.programFolder = u"/program"_s;
        return paths;
    }();
};

QTEST_GUILESS_MAIN(tst_SettingsTable)
#include "tst_settingstable.moc"
