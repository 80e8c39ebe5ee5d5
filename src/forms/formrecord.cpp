// corvane-form-record: writes a record for web forms into a program folder.

#include "base/step.h"
#include "core/state/SettingsStore.h"
#include "desktop/Paths.h"
#include "desktop/SecretService.h"
#include "desktop/instance/Instance.h"
#include "forms/FieldTable.h"
#include "forms/FormLock.h"
#include "forms/FormRecordJson.h"
#include "forms/FormStore.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargestInput = 1024 * 1024;

int fail(const QString &message)
{
    std::fprintf(stderr, "corvane-form-record: %s\n", qPrintable(message));
    return 1;
}

QByteArray readInput(const QString &name)
{
    QFile file(name);
    const bool isOpen = name == u"-"_s ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!isOpen)
        throw ControlError("the file cannot be read: " + name.toStdString());
    return file.read(kLargestInput);
}

/// Writes the record once the key of the present one is there, or is known not to come.
int writeRecord(const desktop::Paths &paths, SettingsStore &settings, const FormValues &values)
{
    const QString path = formFileIn(paths.programFolder);
    FormKeys keys(paths.programFolder, desktop::secretServiceOf(paths));
    FormStore store(keys);
    store.LoadFormData(path);
    int result = 0;
    const auto write = [&] {
        try {
            BuildFormFields(values, store, settings, path);
        } catch (const ControlError &error) {
            result = fail(QString::fromUtf8(error.what()));
        }
        // Also when nothing was waited for: the loop has not begun yet.
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    };
    keys.whenSettled(write);
    QCoreApplication::exec();
    return result;
}

int run(const QString &input, bool isAuto)
{
    const desktop::Paths paths = desktop::Paths::fromEnvironment();
    if (instance::isOwned(paths.runtimeFolder.toStdString(), instance::kMutexName))
        return fail(u"Corvane is running; close it first, or it will go on with what it has read"_s);
    SettingsStore settings(paths.settingsFile);
    FormValues values = ReadFormJson(readInput(input), settings);
    if (const int fault = writeRecord(paths, settings, values); fault != 0)
        return fault;
    if (isAuto)
        settings.SaveSetting(appTitle(), u"Forms"_s, u"AutoFormFill"_s, fromBoolean(true));
    return settings.sync() ? 0 : fail(u"the settings cannot be written"_s);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Writes a record for web forms into Corvane's program folder ($CORVANE_HOME, or the user's), in place of the "
        "one that is there."_s);
    parser.addHelpOption();
    parser.addPositionalArgument(u"FILE"_s, u"the record as JSON; - for standard input"_s);
    const QCommandLineOption automatic(u"auto"_s, u"Also switch automatic filling on."_s);
    parser.addOption(automatic);
    parser.process(application);
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(1);
    try {
        return run(parser.positionalArguments().constFirst(), parser.isSet(automatic));
    } catch (const ControlError &error) {
        return fail(QString::fromUtf8(error.what()));
    }
}
