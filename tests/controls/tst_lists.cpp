#include "base/step.h"
#include "controls/ImageList.h"
#include "controls/ListView.h"

#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace controls;
using namespace Qt::StringLiterals;

class TestLists : public QObject
{
    Q_OBJECT
private slots:
    void linesAndSubItems()
    {
        ListView view;
        view.setColumnCount(2);
        for (const QString &text : {u"one"_s, u"two"_s, u"three"_s})
            view.ListItems().Add(text).AddListSubItem();
        ListItem &third = view.ListItems(3);
        third.ListSubItems(1).setText(u"50%"_s);
        view.ListItems().Remove(1);
        QCOMPARE(third.Index(), 2);
        QCOMPARE(&view.ListItems(2), &third);
        QCOMPARE(third.ListSubItems(1).Text(), u"50%"_s);

        QVERIFY_THROWS_EXCEPTION(ControlError, view.ListItems(0));
        QVERIFY_THROWS_EXCEPTION(ControlError, view.ListItems(3));
        QVERIFY_THROWS_EXCEPTION(ControlError, view.ListItems().Remove(3));
        QVERIFY_THROWS_EXCEPTION(ControlError, third.ListSubItems(2));
        QVERIFY_THROWS_EXCEPTION(ControlError, view.ListItems().Add().ListSubItems(1));
    }

    /// A line of two device pixels' width must stay one at each ratio, not be a stretched small picture.
    void picturesAreSharpAndKeepTheirNumbers()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath(u"line.svg"_s);
        QFile svg(file);
        QVERIFY(svg.open(QIODevice::WriteOnly));
        svg.write("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 16 16'>"
                  "<rect x='8' width='8' height='16' fill='#000'/></svg>");
        svg.close();

        ImageList images(16);
        QCOMPARE(images.add(folder.filePath(u"absent.svg"_s)), 0);
        QCOMPARE(images.add(file), 1);
        QVERIFY(images.icon(0).isNull() && images.icon(-1).isNull() && images.icon(2).isNull());
        QVERIFY(images.pixmap(0, 1).isNull());
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QImage image = images.pixmap(1, ratio).toImage();
            QCOMPARE(image.size(), QSize(16, 16) * ratio);
            const int edge = image.width() / 2;
            QCOMPARE(qAlpha(image.pixel(edge - 1, 5)), 0);
            QCOMPARE(qAlpha(image.pixel(edge, 5)), 255);
        }
    }
};

QTEST_MAIN(TestLists)
#include "tst_lists.moc"
