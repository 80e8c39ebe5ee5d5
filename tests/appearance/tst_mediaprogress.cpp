#include "appearance/cMediaProgress.h"
#include "base/RuntimeError.h"

#include <QPainter>
#include <QPalette>
#include <QTest>
#include <cmath>

namespace {

QColor pixel(const cMediaProgress &progress, int x, int y)
{
    return progress.surface().toImage().convertToFormat(QImage::Format_RGB32).pixelColor(x, y);
}

/// The blue that a lightness (0 to 1) gets: by the closed form of a saturated blue with nine tenths of it.
QColor blueOf(double lightness)
{
    const double l = lightness * 0.9;
    const int rest = l > 0.5 ? static_cast<int>(std::nearbyint((2 * l - 1) * 255)) : 0;
    const int blue = l > 0.5 ? 255 : static_cast<int>(std::nearbyint(2 * l * 255));
    return QColor(rest, rest, blue);
}

} // namespace

class tst_MediaProgress : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        QPalette palette;
        palette.setColor(QPalette::Button, QColor(192, 192, 192));
        QApplication::setPalette(palette);
    }

    void bar_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("firstEmpty");
        QTest::newRow("nothing") << 0 << 1; // column 0 is the frame
        QTest::newRow("half") << 50 << 85;
        QTest::newRow("all") << 100 << 170; // one empty column stands before the frame at 171
    }

    void bar()
    {
        QFETCH(int, value);
        QFETCH(int, firstEmpty);
        cMediaProgress progress;
        progress.setMax(100);
        progress.setWidth(172);
        progress.setShowPercentage(false);
        progress.setValue(value);

        const QColor field(204, 204, 255);
        for (int x = firstEmpty; x < 171; ++x)
            QCOMPARE(pixel(progress, x, 10), field);
        // the frame is recoloured all around, the field left of the bar's end too
        for (const QPoint at : {QPoint(0, 10), QPoint(171, 10), QPoint(80, 0), QPoint(80, 19)})
            QCOMPARE(pixel(progress, at.x(), at.y()), blueOf(192 / 255.0));
        QCOMPARE(pixel(progress, 170, 1), field);
        if (firstEmpty > 2)
            QCOMPARE(pixel(progress, 2, 1), blueOf(0.9));
        const int width = firstEmpty - 2;
        for (int x = 2; x < firstEmpty; ++x) {
            const double share = static_cast<double>(x - 2) / width;
            const QColor got = pixel(progress, x, 10);
            const QColor want = blueOf((255 - 149 * share + 255 - 74 * share) / 2 / 255);
            QVERIFY2(std::abs(got.red() - want.red()) <= 2 && std::abs(got.blue() - want.blue()) <= 2,
                     qPrintable(QStringLiteral("%1: %2 for %3").arg(x).arg(got.name(), want.name())));
            QCOMPARE(got.red(), got.green());
        }
    }

    void captionOnlyAdds()
    {
        cMediaProgress progress;
        progress.setMax(100);
        progress.setWidth(172);
        progress.setText(QStringLiteral("Complete"));
        progress.setShowPercentage(false);
        progress.setValue(100);
        cMediaProgress bare;
        bare.setMax(100);
        bare.setWidth(172);
        bare.setShowPercentage(false);
        bare.setValue(100);
        int brighter = 0;
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 172; ++x) {
                const int with = qGray(pixel(progress, x, y).rgb());
                const int without = qGray(pixel(bare, x, y).rgb());
                QVERIFY(with >= without);
                brighter += with > without;
            }
        }
        QVERIFY(brighter > 50);
    }

    void valuesAndErrors()
    {
        cMediaProgress progress;
        QCOMPARE(progress.BarColor(), 6932573);
        QVERIFY(progress.surface().toImage().isNull()); // nothing before the first property
        progress.setValue(30);
        QCOMPARE(progress.Percent(), 0.0F); // no range yet
        progress.setMin(20);
        progress.setMax(60);
        QCOMPARE(progress.Percent(), 0.0F); // not computed again
        progress.setValue(30);
        QCOMPARE(progress.Percent(), 0.75F); // the minimum is not taken off
        progress.setPercent(0.5F);
        QCOMPARE(progress.Value(), 30);
        QCOMPARE(cMediaProgress::TranslateColor(0x8000000F), 0xC0C0C0);
        QCOMPARE(cMediaProgress::TranslateColor(0x123456), 0x123456);
        QCOMPARE(cMediaProgress::TranslateColor(0x80000100), -1);
    }

    void autoSize()
    {
        cMediaProgress progress;
        progress.setAutoSize(true);
        try {
            progress.setWidth(10);
            QFAIL("the width is the caption's");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number(), 425);
        }
        progress.setShowPercentage(false);
        QCOMPARE(progress.Width(), 4); // an empty caption is not measured
        QCOMPARE(progress.surface().Width() >= 16, true);
        progress.setText(QStringLiteral("A caption"));
        QCOMPARE(progress.Width(), QFontMetrics(QFont()).horizontalAdvance(QStringLiteral("A caption")) + 4);
    }

    void growsAndNeverShrinks()
    {
        cMediaProgress progress;
        progress.setShowPercentage(false);
        progress.setWidth(50);
        progress.setWidth(120);
        progress.setWidth(60);
        QCOMPARE(progress.surface().Width(), 120);
        // the border that is recoloured stays the surface's
        QCOMPARE(pixel(progress, 119, 10).green(), pixel(progress, 119, 10).red());
        QVERIFY(pixel(progress, 119, 10) != QColor(204, 204, 255));
    }

    void hls()
    {
        struct Case
        {
            int r, g, b;
            float h;
        };
        for (const Case c : {Case{255, 0, 0, 0}, Case{255, 255, 0, 1}, Case{0, 255, 0, 2}, Case{0, 255, 255, 3},
                             Case{0, 0, 255, 4}, Case{255, 0, 255, -1}}) {
            float h = 9;
            float s = 9;
            float l = 9;
            cMediaProgress::RGBToHLS(c.r, c.g, c.b, h, s, l);
            QCOMPARE(h, c.h);
            QCOMPARE(s, 1.0F);
            QCOMPARE(l, 0.5F);
        }
        // there and back
        for (int n = 0; n < 4096; ++n) {
            const int r = n % 16 * 17;
            const int g = n / 16 % 16 * 17;
            const int b = n / 256 * 17;
            float h = 0;
            float s = 0;
            float l = 0;
            cMediaProgress::RGBToHLS(r, g, b, h, s, l);
            int r2 = 0;
            int g2 = 0;
            int b2 = 0;
            cMediaProgress::HLSToRGB(h, s, l, r2, g2, b2);
            QCOMPARE(QColor(r2, g2, b2), QColor(r, g, b));
        }
    }

    void drawCopiesWhatThereIs()
    {
        cMediaProgress progress;
        progress.setWidth(20); // the first write makes the surface
        progress.setShowPercentage(false);
        QImage target(60, 40, QImage::Format_RGB32);
        target.fill(Qt::green);
        QPainter painter(&target);
        progress.Draw(painter, 10, 5, 200, 300, 255); // edges given as sizes lie beyond the surface
        progress.Draw(painter, 40, 5, 5, 5, 100);     // only the opaque way is drawn
        painter.end();
        QCOMPARE(target.pixelColor(29, 24), pixel(progress, 19, 19));
        QCOMPARE(target.pixelColor(30, 10), QColor(Qt::green));
        QCOMPARE(target.pixelColor(41, 6), QColor(Qt::green));
    }
};

QTEST_MAIN(tst_MediaProgress)
#include "tst_mediaprogress.moc"
