#include "core/frmSplash.h"

#include "base/Strings.h"
#include "core/state/ProcessFlags.h"

#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(440, 260);
constexpr QRect kLogo(256, 42, 144, 144);
constexpr QRect kTitle(36, 78, 220, 48);
constexpr QRect kVersion(38, 126, 220, 22);

QPixmap picture(qreal devicePixelRatio)
{
    QPixmap picture = QIcon(u":/icons/splash.svg"_s).pixmap(kSize, devicePixelRatio);
    QPainter painter(&picture);
    QIcon(u":/icons/app/corvane.svg"_s).paint(&painter, kLogo);
    return picture;
}

} // namespace

frmSplash::frmSplash(ProcessFlags &flags)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint)
    , m_flags(flags)
{
    setFixedSize(kSize);
    Picture2 = new QLabel(this);
    Picture2->setGeometry(rect());
    Picture2->setPixmap(picture(devicePixelRatio()));

    const auto label = [this](const QString &text, const QRect &place, qreal points, bool bold, const QColor &colour) {
        auto *made = new QLabel(text, this);
        made->setGeometry(place);
        QFont font = made->font();
        font.setPointSizeF(points);
        font.setBold(bold);
        made->setFont(font);
        QPalette palette = made->palette();
        palette.setColor(QPalette::WindowText, colour);
        made->setPalette(palette);
        return made;
    };
    label2 = label(u"100"_s, kTitle, 27, true, QColor(0x1f, 0x2d, 0x4d));
    label1 = label(u"109"_s, kVersion, 10.5, false, QColor(0x4a, 0x5a, 0x7d));

    if (const QScreen *screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
    Form_Load();
}

frmSplash::~frmSplash()
{
    Unload();
}

void frmSplash::Form_Load()
{
    LocalizeForm(this);
    m_flags.ShortcutsEnabled = false;
    m_loaded = true;
}

void frmSplash::Unload()
{
    if (!m_loaded)
        return;
    m_loaded = false;
    m_flags.ShortcutsEnabled = true;
    hide();
}
