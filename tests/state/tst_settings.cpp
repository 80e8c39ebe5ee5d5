#include "base/Files.h"
#include "base/FullDisk.h"
#include "base/step.h"
#include "core/state/SettingsStore.h"
#include "core/state/SettingsTable.h"
#include "desktop/Paths.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// What is no permission of the owner.
constexpr auto kOthers = QFileDevice::Permissions(0x0077);

/// The sections in their order.
constexpr const char *kSections[] = {"General", "History", "Sites",   "Sidebar", "CustomLinks",
                                     "Skins",   "Control", "Content", "Forms",   "Popup"};

/// The file of the settings, the table of its keys and the values that a text gives.
class tst_Settings : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath(u"config/settings.ini"_s);
        m_copy = m_folder->filePath(u"copy.ini"_s);
    }

    void valuesComeBack()
    {
        const QStringList values{u"https://a.example/?b=c&d#e"_s,
                                 u";a # b; c"_s,
                                 u"\"a\""_s,
                                 u"C:\\new\\x41\\"_s,
                                 u"  a \t"_s,
                                 u"a\r\nb\n\rc\n"_s,
                                 u" \\n\\\"\\u0041\""_s,
                                 u"\0\x01\x1b\x7f"_s,
                                 u"\u00e4\u4e2d\U0001F600\u202e\u0085\ufeff"_s,
                                 QString(QChar(0xD83D)) + u'x' + QChar(0xDE00),
                                 QString(100 * 1024, u'\u00e4')};
        const auto key = [](qsizetype n) { return u"Key%1"_s.arg(n); };
        {
            SettingsStore store(m_file);
            for (qsizetype n = 0; n < values.size(); ++n) {
                save(store, key(n), values[n]);
                QCOMPARE(get(store, key(n)), values[n]);
            }
        }
        for (qsizetype n = 0; n < values.size(); ++n)
            QCOMPARE(stored(key(n)), values[n]);
    }

    void handEditedValues()
    {
        const QByteArray section = "[Corvane/General]\n";
        const std::initializer_list<std::pair<QByteArray, QString>> cases{
            {section + "Key=a, b,c", u"a, b,c"_s},
            {section + "Key=a\r", u"a"_s},
            {section + "Key=a ; b", u"a ; b"_s},
            {section + "Key=C:\\new\\temp", u"C:\\new\\temp"_s},
            {section + "Key=\" a \"", u" a "_s},
            {section + "Key=\"a\" b \"c\"", u"\"a\" b \"c\""_s},
            {section + "Key=\"C:\\windows\"", u"\"C:\\windows\""_s}, // which knows no such escape
            {section + "Key=a\nKey=b", u"b"_s},
            {"\xEF\xBB\xBF" + section + "Key=a", u"a"_s}};
        int number = 0;
        for (const auto &[content, value] : cases) {
            m_file = m_folder->filePath(u"%1.ini"_s.arg(++number));
            QVERIFY(writeFileWhole(m_file, content));
            {
                SettingsStore store(m_file);
                QCOMPARE(get(store, u"Key"_s), value);
                save(store, u"Other"_s, u"x"_s);
            }
            // Writing another key must not change it.
            QCOMPARE(stored(u"Key"_s), value);
            QCOMPARE(stored(u"Other"_s), u"x"_s);
        }
    }

    void absentKeys()
    {
        SettingsStore store(m_file);
        save(store, u"Key"_s, u"x"_s);
        QCOMPARE(store.GetSetting(u"Other"_s, u"General"_s, u"Key"_s, u"default"_s), u"default"_s);
        QCOMPARE(get(store, u"key"_s), u"(absent)"_s);
        // Stored as empty is not absent.
        save(store, u"Key"_s, QString());
        QCOMPARE(get(store, u"Key"_s), QString());
    }

    void whatTheProgramDoesNotKnowSurvives()
    {
        QDir().mkpath(QFileInfo(m_file).path());
        QVERIFY(writeFileWhole(m_file, "Alone=1\n"
                                       "[Other program/Deep/Section]\nFuture=a, b\n"
                                       "[Corvane/General]\n; written by hand\nNewKey=2\n???\na/b=c\nLoadAction=1\n"));
        {
            SettingsStore store(m_file);
            save(store, u"LoadAction"_s, u"3"_s);
        }
        const QByteArray content = readFile(m_file).value_or(QByteArray());
        for (const char *line : {"Alone=1\n", "[Other program/Deep/Section]\nFuture=a, b\n",
                                 "; written by hand\n???\na/b=c\n", "NewKey=2\n", "LoadAction=3\n"})
            QVERIFY2(content.contains(line), content.constData());
        QVERIFY(!content.contains("LoadAction=1"));
    }

    void fileIsPrivate()
    {
        SettingsStore store(m_file);
        save(store, u"TrayPassword"_s, u"secret"_s);
        QVERIFY(store.sync());
        QVERIFY(!(QFile::permissions(m_file) & kOthers));

        const QString open = m_folder->filePath(u"open.ini"_s);
        QVERIFY(writeFileWhole(open, {}));
        QFile::setPermissions(open, QFile::permissions(open) | QFileDevice::ReadOther);
        SettingsStore other(open);
        QVERIFY(!(QFile::permissions(open) & kOthers));
    }

    void damagedFileIsKept()
    {
        const QByteArray content("\xFF\xFE\x80[Corvane/General]\nKey=a\n\0\0", 29);
        QDir().mkpath(QFileInfo(m_file).path());
        QVERIFY(writeFileWhole(m_file, content));
        {
            SettingsStore store(m_file);
            QCOMPARE(get(store, u"Key"_s), u"(absent)"_s);
            save(store, u"Other"_s, u"x"_s);
            QVERIFY(store.sync());
        }
        QCOMPARE(stored(u"Other"_s), u"x"_s);
        QCOMPARE(readFile(m_file + u".damaged"_s).value_or("none"), content);

        // A folder in the file's place cannot be read as a file.
        const QString folder = m_folder->filePath(u"folder"_s);
        QVERIFY(QDir().mkpath(folder + u"/inner"_s));
        SettingsStore store(folder);
        save(store, u"Key"_s, u"x"_s);
        QVERIFY(store.sync());
        QVERIFY(QFileInfo::exists(folder + u".damaged/inner"_s));
    }

    void fullDisk()
    {
        SettingsStore store(m_file);
        save(store, u"Key"_s, u"old"_s);
        QVERIFY(store.sync());
        save(store, u"Key"_s, QString(10000, u'x'));

        {
            const FullDisk full(1000);
            QVERIFY(!store.sync());
        }
        QCOMPARE(readFile(m_file).value_or("none"), "[Corvane/General]\nKey=old\n");
        QCOMPARE(get(store, u"Key"_s).size(), 10000);
        // When there is room again, the change is not lost.
        QVERIFY(store.sync());
        QCOMPARE(stored(u"Key"_s).size(), 10000);
    }

    void twoProgramsOnOneFile()
    {
        SettingsStore store(m_file);
        save(store, u"Mine"_s, u"1"_s);
        save(store, u"Both"_s, u"1"_s);
        QVERIFY(store.sync());

        // Another program changes the file meanwhile.
        QVERIFY(writeFileWhole(m_file, "[Corvane/General]\nBoth=22\nMine=1\nTheirs=22\n"));
        save(store, u"Mine"_s, u"333"_s);
        QVERIFY(store.sync());
        QCOMPARE(stored(u"Mine"_s), u"333"_s);
        QCOMPARE(stored(u"Theirs"_s), u"22"_s);
        QCOMPARE(stored(u"Both"_s), u"22"_s);
        QCOMPARE(get(store, u"Both"_s), u"22"_s);
    }

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
        SettingsStore store(m_folder->filePath(u"empty.ini"_s));
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
    desktop::Paths m_paths = [] {
        desktop::Paths paths;
        paths.programFolder = u"/program"_s;
        return paths;
    }();

    static QString get(const SettingsStore &store, const QString &key)
    {
        return store.GetSetting(appTitle(), u"General"_s, key, u"(absent)"_s);
    }

    static void save(SettingsStore &store, const QString &key, const QString &value)
    {
        store.SaveSetting(appTitle(), u"General"_s, key, value);
    }

    /// What another start of the program would find.
    QString stored(const QString &key) const
    {
        QFile::remove(m_copy);
        QFile::copy(m_file, m_copy);
        return get(SettingsStore(m_copy), key);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    /// Within one process two stores on one file share their values, so what is on the disk is read from a copy.
    QString m_copy;
};

QTEST_GUILESS_MAIN(tst_Settings)
#include "tst_settings.moc"
