#include "engine/PdfPages.h"

#include <QCoreApplication>
#include <QPluginLoader>

using namespace Qt::StringLiterals;

namespace engine {

std::unique_ptr<PdfPages> openPdf(const QByteArray &pdf)
{
    if (pdf.isEmpty())
        return nullptr;
    // Beside the program as the build puts it, or where an installation keeps libraries. Qt loads it once.
    for (const auto &folder : {""_L1, "/../lib/corvane"_L1}) {
        QPluginLoader loader(QCoreApplication::applicationDirPath() + folder + "/corvane-pdf.so"_L1);
        if (const auto *reader = qobject_cast<PdfReader *>(loader.instance()))
            return reader->open(pdf);
    }
    return nullptr;
}

} // namespace engine
