#include "appearance/cAlphaDibSection.h"
#include "appearance/cMediaProgress.h"
#include "base/RuntimeError.h"

#include <QPainter>
#include <QPalette>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>
#include <initializer_list>

namespace {

/// Writes the bytes of one memory row, row 0 being the bottom line.
void setRow(cAlphaDibSection &surface, int row, std::initializer_list<int> bytes)
{
    int column = 0;
    for (const int byte : bytes)
        surface.bytes()(column++, row) = static_cast<uint8_t>(byte);
}

QList<int> rowOf(cAlphaDibSection &surface, int row)
{
    QList<int> bytes;
    for (int column = 0; column < surface.BytesPerScanLine(); ++column)
        bytes << surface.bytes()(column, row);
    return bytes;
}

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

/// Painting by bytes: the surface and the progress bar on it.
class tst_Painting : public QObject
{
    Q_OBJECT

private slots:
    void lifecycle()
    {
        cAlphaDibSection surface;
        QVERIFY(!surface.hdc() && !surface.DIBSectionBitsPtr());
        surface.setUseDrawDib(true);
        QVERIFY(surface.Create(3, 2));
        QVERIFY(surface.UseDrawDib()); // survives the making of a new section
        QCOMPARE(surface.BytesPerScanLine(), 12);
        surface.bytes()(0, 0) = 7;
        QVERIFY(surface.Create(3, 2)); // the same size makes a new picture too
        QCOMPARE(int(surface.bytes()(0, 0)), 0);
        QVERIFY(!surface.Create(0, 2)); // a failure leaves the object empty
        QCOMPARE(surface.Width(), 0);
        QVERIFY(!surface.hDib());
        QVERIFY(surface.Create(2, 2));
        QVERIFY_THROWS_EXCEPTION(ControlError, surface.bytes()(8, 0));
        QVERIFY_THROWS_EXCEPTION(ControlError, surface.bytes()(0, -1));
    }

    void rowsRunBottomUp()
    {
        QImage picture(1, 2, QImage::Format_ARGB32);
        picture.setPixel(0, 0, qRgba(1, 2, 3, 4)); // top line
        picture.setPixel(0, 1, qRgba(5, 6, 7, 8));
        cAlphaDibSection surface;
        surface.CreateFromHBitmap(picture);
        QCOMPARE(rowOf(surface, 0), QList<int>({7, 6, 5, 8}));
        QCOMPARE(rowOf(surface, 1), QList<int>({3, 2, 1, 4}));
        QCOMPARE(surface.toImage(), picture);
    }

    void paintingLeavesAlphaZero()
    {
        cAlphaDibSection surface;
        QVERIFY(surface.Create(2, 1));
        setRow(surface, 0, {10, 20, 30, 40, 50, 60, 70, 80});
        surface.hdc().paint([](QPainter &painter) { painter.fillRect(1, 0, 1, 1, QColor(1, 2, 3)); });
        QCOMPARE(rowOf(surface, 0), QList<int>({10, 20, 30, 40, 3, 2, 1, 0}));
    }

    void codeAlphaBlend()
    {
        cAlphaDibSection target, source;
        QVERIFY(target.Create(2, 2));
        QVERIFY(source.Create(1, 1));
        setRow(target, 1, {9, 9, 9, 9, 0, 100, 255, 77});
        setRow(source, 0, {255, 200, 0, 66});
        // alpha 51 is a fifth: 0.8 d + 0.2 s = 51, 120, 204; the fourth byte stays
        cAlphaDibSection::CodeAlphaBlend(target, source, 1, 1, -1, -1, 51);
        QCOMPARE(rowOf(target, 1), QList<int>({9, 9, 9, 9, 51, 120, 204, 77}));
        setRow(target, 0, {0, 0, 0, 0, 0, 0, 0, 0});
        setRow(source, 0, {5, 15, 25, 0}); // x 51 / 255 = 1, 3, 5
        cAlphaDibSection::CodeAlphaBlend(target, source, 0, 0, 4, 1, 51);
        QCOMPARE(rowOf(target, 0), QList<int>({1, 3, 5, 0, 0, 0, 0, 0}));
        // a region that sticks out of the target is an error, not a stray write
        QVERIFY_THROWS_EXCEPTION(ControlError, cAlphaDibSection::CodeAlphaBlend(target, source, 2, 0, -1, -1, 51));
        // -1 takes the row of the narrower object, in bytes: one pixel here, although the target is two wide
        setRow(target, 0, {0, 0, 0, 0, 8, 8, 8, 8});
        cAlphaDibSection::CodeAlphaBlend(target, source, 0, 0, -1, -1, 255);
        QCOMPARE(rowOf(target, 0), QList<int>({5, 15, 25, 0, 8, 8, 8, 8}));
    }

    void alphaPaintPicture()
    {
        cAlphaDibSection target, source;
        QVERIFY(target.Create(3, 1));
        QVERIFY(source.Create(3, 1));
        // alpha 0: only adds; alpha 255: replaces in the share of the constant; everything is held at 255
        setRow(target, 0, {100, 100, 100, 0, 100, 100, 100, 100, 250, 250, 250, 0});
        setRow(source, 0, {255, 0, 51, 0, 255, 0, 51, 255, 255, 255, 255, 0});
        source.AlphaPaintPicture(target, 0, 0, -1, -1, 0, 0, 51);
        QCOMPARE(rowOf(target, 0), QList<int>({151, 100, 110, 0, 131, 80, 90, 131, 255, 255, 255, 0}));
        // a part that lies outside is cut off
        target.Clear();
        source.AlphaPaintPicture(target, 2, 0, -1, -1, 1, 0, 255);
        QCOMPARE(rowOf(target, 0), QList<int>({0, 0, 0, 0, 0, 0, 0, 0, 255, 0, 51, 255}));
    }

    void rasterOperations()
    {
        cAlphaDibSection target, source;
        QVERIFY(target.Create(1, 1));
        QVERIFY(source.Create(1, 1));
        const auto result = [&](int32_t raster) {
            setRow(target, 0, {0x0f, 0, 0, 0});
            setRow(source, 0, {0x3c, 0, 0, 0});
            source.PaintPicture(target, 0, 0, -1, -1, 0, 0, raster);
            return int(target.bytes()(0, 0));
        };
        QCOMPARE(result(SRCCOPY), 0x3c);
        QCOMPARE(result(0x8800C6), 0x0c); // and
        QCOMPARE(result(0xEE0086), 0x3f); // or
        QCOMPARE(result(0x660046), 0x33); // exclusive or
        QCOMPARE(result(0x330008), 0xc3); // not source
        source.setUseDrawDib(true);       // which knows no raster operation
        QCOMPARE(result(0x8800C6), 0x3c);
    }

    void savePicture()
    {
        QTemporaryDir folder;
        cAlphaDibSection surface;
        QVERIFY(surface.Create(2, 2));
        setRow(surface, 0, {1, 2, 3, 4, 5, 6, 7, 8});
        setRow(surface, 1, {9, 10, 11, 12, 13, 14, 15, 16});
        const QString path = folder.filePath(QStringLiteral("a.bmp"));
        QVERIFY(surface.SavePicture(path));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray expected = QByteArray::fromHex("424d 4a000000 0000 0000 3a000000"
                                                        "28000000 02000000 02000000 0100 2000 00000000 10000000"
                                                        "00000000 00000000 00000000 00000000 00000000"
                                                        "0102030405060708 090a0b0c0d0e0f10");
        QCOMPARE(file.readAll(), expected);
        // what we write, others read
        QImage read(path);
        QCOMPARE(read.pixelColor(0, 1).red(), 3);
        try {
            surface.SavePicture(folder.filePath(QStringLiteral("no/such/folder.bmp")));
            QFAIL("an unwritable place raises an error");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number(), 17);
            QVERIFY(error.source().endsWith(QLatin1String(".cDIBSection")) && !error.description().isEmpty());
        }
        if (QFile::exists(QStringLiteral("/dev/full")))
            QVERIFY(!surface.SavePicture(QStringLiteral("/dev/full")));
    }

    void resample()
    {
        cAlphaDibSection surface;
        QVERIFY(surface.Create(3, 2));
        setRow(surface, 0, {0, 0, 0, 9, 100, 0, 0, 9, 200, 0, 0, 9});
        setRow(surface, 1, {50, 0, 0, 9, 150, 0, 0, 9, 250, 0, 0, 9});
        const auto same = surface.Resample(2, 3);
        QVERIFY(same);
        QCOMPARE(same->toImage(), surface.toImage()); // alpha included
        const auto twice = surface.Resample(4, 4);
        QVERIFY(twice);
        QCOMPARE(twice->Width(), 4);
        // xs = 2 / 4, ys = 1 / 4: columns 0, 50, 100, 150 of the bottom row, each line 12.5 brighter, ties to even (a
        // is rounded before the columns are mixed: 12, 112; 12, 62, 112, 162), alpha 0
        const auto blues = [&](int row) {
            QList<int> list;
            for (int x = 0; x < 4; ++x)
                list << twice->bytes()(x * 4, row) << twice->bytes()(x * 4 + 3, row);
            return list;
        };
        QCOMPARE(blues(0), QList<int>({0, 0, 50, 0, 100, 0, 150, 0}));
        QCOMPARE(blues(1), QList<int>({12, 0, 62, 0, 112, 0, 162, 0}));
        QCOMPARE(blues(2), QList<int>({25, 0, 75, 0, 125, 0, 175, 0}));
        QVERIFY(!surface.Resample(0, 3));
    }

    void randomiseBits()
    {
        for (const bool gray : {false, true}) {
            cAlphaDibSection surface;
            QVERIFY(surface.Create(64, 64));
            surface.RandomiseBits(gray);
            int different = 0;
            for (int y = 0; y < 64; ++y) {
                for (int x = 0; x < 256; x += 4) {
                    const int alpha = surface.bytes()(x + 3, y);
                    QVERIFY(surface.bytes()(x, y) <= alpha && surface.bytes()(x + 1, y) <= alpha);
                    different += surface.bytes()(x, y) != surface.bytes()(x + 1, y);
                }
            }
            QCOMPARE(different > 1000, !gray);
        }
    }

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
        cMediaProgress progress, bare;
        progress.setText(QStringLiteral("Complete"));
        for (cMediaProgress *each : {&progress, &bare}) {
            each->setMax(100);
            each->setWidth(172);
            each->setShowPercentage(false);
            each->setValue(100);
        }
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
        const std::initializer_list<std::tuple<int, int, int, float>> cases{
            {255, 0, 0, 0}, {255, 255, 0, 1}, {0, 255, 0, 2}, {0, 255, 255, 3}, {0, 0, 255, 4}, {255, 0, 255, -1}};
        for (const auto &[red, green, blue, hue] : cases) {
            float h = 9, s = 9, l = 9;
            cMediaProgress::RGBToHLS(red, green, blue, h, s, l);
            QCOMPARE(h, hue);
            QCOMPARE(s, 1.0F);
            QCOMPARE(l, 0.5F);
        }
        // there and back
        for (int n = 0; n < 4096; ++n) {
            const int r = n % 16 * 17;
            const int g = n / 16 % 16 * 17;
            const int b = n / 256 * 17;
            float h = 0, s = 0, l = 0;
            cMediaProgress::RGBToHLS(r, g, b, h, s, l);
            int r2 = 0, g2 = 0, b2 = 0;
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

QTEST_MAIN(tst_Painting)
#include "tst_painting.moc"
