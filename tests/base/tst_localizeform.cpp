#include "base/Strings.h"
#include "support/Rows.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

class tst_LocalizeForm : public QObject
{
    Q_OBJECT

private slots:
    void numbers_data()
    {
        // What becomes of the title of a window, the caption of a control and a label, which holds its number itself.
        const QString old = u"old"_s;
        const QString load = u"Load Now"_s;
        const QString manual = u"Manual Loading Only"_s;
        rows<QString, QString, QString, QString>({
            {"number", {u"8007"_s, load, load, load}},
            {"blanks and more text", {u" 80 07x"_s, old, load, u" 80 07x"_s}},
            {"rounded to even", {u"8006.5"_s, manual, manual, manual}},
            {"text", {u"Label1"_s, old, old, u"Label1"_s}},
            {"absent", {u"8024"_s, old, old, u"8024"_s}},
            {"beyond 16 bits", {u"73543"_s, old, old, u"73543"_s}},
            {"empty", {QString(), old, old, QString()}},
        });
    }

    void numbers()
    {
        const auto [number, title, caption, labelText] = row<QString, QString, QString, QString>();
        QDialog form;
        form.setWindowTitle(u"old"_s);
        form.setProperty(kTag, number);
        auto *frame = new QGroupBox(u"old"_s, &form);
        auto *button = new QPushButton(u"old"_s, frame);
        auto *check = new QCheckBox(u"old"_s, frame);
        auto *text = new QLineEdit(u"old"_s, frame);
        for (QWidget *control : std::initializer_list<QWidget *>{frame, button, check, text}) {
            control->setProperty(kTag, number);
            control->setToolTip(number);
        }
        QLabel label(number, &form);
        LocalizeForm(&form);
        QCOMPARE(form.windowTitle(), title);
        QCOMPARE((QStringList{frame->title(), button->text(), check->text()}), QStringList(3, caption));
        QCOMPARE(label.text(), labelText);
        // A text box has no caption; its content stays.
        QCOMPARE(text->text(), u"old"_s);
        QCOMPARE(text->toolTip(), caption == u"old"_s ? number : caption);
    }

    void menusTabsAndHeaders()
    {
        QMainWindow form;
        QMenu *file = form.menuBar()->addMenu(u"1000"_s);
        const QAction *open = file->addAction(u"1002"_s);
        const QAction *dash = file->addAction(u"-"_s);
        const QAction *status = file->addMenu(u"1019"_s)->addAction(u"1021"_s);
        QTabWidget pages;
        form.setCentralWidget(&pages);
        auto *bar = pages.findChild<QTabBar *>();
        pages.addTab(new QWidget, u"General"_s);
        pages.addTab(new QWidget, u"Own"_s);
        bar->setTabData(0, u"8027"_s);
        bar->setTabToolTip(0, u"8015"_s);
        auto *list = new QTreeWidget(&pages);
        list->setHeaderLabels({u"a"_s, u"b"_s});
        list->headerItem()->setData(0, kTagRole, u"2503"_s);
        LocalizeForm(&form);
        QCOMPARE((QStringList{file->title(), open->text(), dash->text(), status->text()}),
                 (QStringList{u"&File"_s, u"&Open\tCtrl+O"_s, u"-"_s, u"Status &Bar"_s}));
        QCOMPARE((QStringList{pages.tabText(0), pages.tabToolTip(0), pages.tabText(1)}),
                 (QStringList{u"User Sites"_s, u"History"_s, u"Own"_s}));
        QCOMPARE((QStringList{list->headerItem()->text(0), list->headerItem()->text(1)}),
                 (QStringList{u"Site"_s, u"b"_s}));
    }

    void formsInsideAreLeftAlone()
    {
        QMainWindow form;
        auto *area = new QMdiArea;
        form.setCentralWidget(area);
        auto *document = new QLabel(u"100"_s);
        area->addSubWindow(document);
        QDialog dialog(&form);
        const QLabel count(u"102"_s, &dialog);
        LocalizeForm(&form);
        QCOMPARE(document->text(), u"100"_s);
        QCOMPARE(count.text(), u"102"_s);
    }
};

QTEST_MAIN(tst_LocalizeForm)
#include "tst_localizeform.moc"
