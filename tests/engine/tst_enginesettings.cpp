#include "base/Files.h"
#include "engine/EngineSettings.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace engine;

class TestEngineSettings : public QObject
{
    Q_OBJECT
private slots:
    void comesBackFromItsFile()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"engine.ini"_s);
        QCOMPARE(EngineSettings::load(file), EngineSettings());

        EngineSettings settings;
        settings.proxy = EngineSettings::Proxy::Manual;
        settings.proxyType = EngineSettings::ProxyType::Socks5;
        settings.proxyHost = u"прокси.example"_s;
        settings.proxyPort = 65535;
        settings.proxyUser = u"a=b # 100%41"_s;
        settings.languages = {u"pt-BR"_s, u"de"_s};
        settings.cookies = EngineSettings::Cookies::NoThirdParties;
        settings.forgetAtExit = true;
        settings.doNotTrack = true;
        settings.cache = EngineSettings::Cache::Limited;
        settings.cacheMegabytes = 1;
        settings.downloadFolder = u"/tmp/a\nb=\"ü\";/ c "_s;
        settings.agent = EngineSettings::Agent::Custom;
        settings.customAgent = u"Mine/1.0 (x; y) [z]"_s;
        QVERIFY(settings.store(file));
        QCOMPARE(EngineSettings::load(file), settings);
        QCOMPARE(QFileInfo(file).permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther),
                 QFile::Permissions());

        // A text editor may have been at work.
        QByteArray text = settings.toText();
        text = "# mine\r\n[engine]\r\n\r\nunknown=1\r\n" + text.replace("=", " = ").replace("\n", "\r\n");
        QCOMPARE(EngineSettings::fromText(text), settings);
        QVERIFY(!settings.store(folder.filePath(u"missing/engine.ini"_s)));
        for (const QByteArray &content : {QByteArray("proxy=none\ncookies=\0\0", 21), QByteArray(1'000'000, 'x')}) {
            QVERIFY(writeFileWhole(file, content));
            QCOMPARE(EngineSettings::load(file), EngineSettings());
            QVERIFY(!QFileInfo::exists(file));
        }
    }

    void valuesWithoutSenseLeaveTheStandard()
    {
        const auto settings =
            EngineSettings::fromText("proxy=manual\nproxy-host=a b\nproxy-port=0\ncookies=some\n"
                                     "cache=limited\ncache-megabytes=2001\nlanguages=de,,x1,../en\n"
                                     "download-folder=here\nagent=custom\ncustom-agent=a%0D%0AX: b\n");
        EngineSettings expected;
        expected.cache = EngineSettings::Cache::Limited;
        expected.languages = QStringList{u"de"_s};
        QCOMPARE(settings, expected);
    }

    void hostNames()
    {
        for (const auto &name : {u"proxy"_s, u"a.example."_s, u"xn--80a_b.example"_s, u"::1"_s, u"[fe80::1]"_s})
            QVERIFY2(isHostName(name), qPrintable(name));
        for (const auto &name : {u""_s, u"."_s, u"a b"_s, u"a:80"_s, u"a/b"_s, u"-a"_s, u"a-"_s, u"user@a"_s, u"[a]"_s})
            QVERIFY2(!isHostName(name), qPrintable(name));
    }

    void languageHeader()
    {
        QCOMPARE(acceptedLanguages({u"en"_s}), u"en"_s);
        QCOMPARE(acceptedLanguages({u"de-DE"_s, u"en"_s}), u"de-DE,de;q=0.9,en;q=0.8"_s);
        // "en" stands where the user has put it.
        QCOMPARE(acceptedLanguages({u"en-GB"_s, u"fr"_s, u"en"_s}), u"en-GB,fr;q=0.9,en;q=0.8"_s);
        const QStringList many = u"a b c d e f g h i j k l m"_s.split(u' ');
        QVERIFY(acceptedLanguages(many).endsWith(u",j;q=0.1,k;q=0.1,l;q=0.1,m;q=0.1"_s));

        QLocale::setDefault(QLocale(QLocale::German, QLocale::Austria));
        QVERIFY(acceptedLanguages(systemLanguages()).startsWith(u"de-AT,de;q=0.9"_s));
        QCOMPARE(systemLanguages().last(), u"en"_s);
        QLocale::setDefault(QLocale::c());
        QCOMPARE(systemLanguages(), QStringList{u"en"_s});
    }
};

QTEST_GUILESS_MAIN(TestEngineSettings)
#include "tst_enginesettings.moc"
