#include "base/Strings.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

class tst_LocalizeForm : public QObject
{
    Q_OBJECT

private slots:
    void windowTitle_data();
    void windowTitle();
    void captionsAndToolTips_data();
    void captionsAndToolTips();
    void labels_data();
    void labels();
    void menus();
    void tabs();
    void toolBarButtons();
    void columnHeaders();
    void formsInsideAreLeftAlone();
};

void tst_LocalizeForm::windowTitle_data()
{
    QTest::addColumn<QVariant>("tag");
    QTest::addColumn<QString>("title");
    QTest::newRow("number as text") << QVariant(u"3500"_s) << u"Corvane - Enter Password"_s;
    QTest::newRow("number") << QVariant(2500) << u"Navigator"_s;
    QTest::newRow("no tag") << QVariant() << u"old"_s;
    QTest::newRow("-1") << QVariant(u"-1"_s) << u"old"_s;
    QTest::newRow("absent id") << QVariant(u"101"_s) << u"old"_s;
    QTest::newRow("more than the number") << QVariant(u"2500x"_s) << u"old"_s;
    QTest::newRow("beyond 16 bits") << QVariant(u"68036"_s) << u"old"_s;
}

void tst_LocalizeForm::windowTitle()
{
    QFETCH(QVariant, tag);
    QDialog form;
    form.setWindowTitle(u"old"_s);
    form.setProperty(kTag, tag);
    LocalizeForm(&form);
    QTEST(form.windowTitle(), "title");
}

void tst_LocalizeForm::captionsAndToolTips_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("result");
    // The leading number counts here, unlike in the other places.
    QTest::newRow("number") << u"8007"_s << u"Load Now"_s;
    QTest::newRow("blanks and more text") << u" 80 07x"_s << u"Load Now"_s;
    QTest::newRow("rounded to even") << u"8006.5"_s << u"Manual Loading Only"_s;
    QTest::newRow("rounded up") << u"8006.6e0"_s << u"Load Now"_s;
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("text") << u"Go 8007"_s << QString();
    QTest::newRow("zero") << u"0"_s << QString();
    QTest::newRow("negative") << u"-8007"_s << QString();
    QTest::newRow("absent") << u"8024"_s << QString();
    QTest::newRow("beyond 16 bits") << u"73543"_s << QString();
}

void tst_LocalizeForm::captionsAndToolTips()
{
    QFETCH(QString, number);
    QFETCH(QString, result);
    QDialog form;
    auto *frame = new QGroupBox(u"old"_s, &form);
    auto *button = new QPushButton(u"old"_s, frame);
    auto *check = new QCheckBox(u"old"_s, frame);
    auto *text = new QLineEdit(u"old"_s, frame);
    for (QWidget *control : {static_cast<QWidget *>(frame), static_cast<QWidget *>(button),
                             static_cast<QWidget *>(check), static_cast<QWidget *>(text)}) {
        control->setProperty(kTag, number);
        control->setToolTip(number);
    }
    LocalizeForm(&form);
    const QString caption = result.isEmpty() ? u"old"_s : result;
    QCOMPARE(frame->title(), caption);
    QCOMPARE(button->text(), caption);
    QCOMPARE(check->text(), caption);
    // A text box has no caption; its content stays.
    QCOMPARE(text->text(), u"old"_s);
    QCOMPARE(text->toolTip(), result.isEmpty() ? number : result);
}

void tst_LocalizeForm::labels_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    QTest::newRow("id") << u"3501"_s << u"Please enter password:"_s;
    QTest::newRow("text to be filled later") << u"Label1"_s << u"Label1"_s;
    QTest::newRow("leading number only") << u"3501 x"_s << u"3501 x"_s;
    QTest::newRow("absent") << u"9999"_s << u"9999"_s;
    QTest::newRow("empty") << QString() << QString();
}

void tst_LocalizeForm::labels()
{
    QFETCH(QString, text);
    QDialog form;
    QLabel label(text, &form);
    label.setProperty(kTag, u"100"_s);
    label.setToolTip(u"100"_s);
    LocalizeForm(&form);
    QTEST(label.text(), "result");
    QCOMPARE(label.toolTip(), u"100"_s);
}

void tst_LocalizeForm::menus()
{
    QMainWindow form;
    QMenu *file = form.menuBar()->addMenu(u"1000"_s);
    QAction *open = file->addAction(u"1002"_s);
    QAction *separator = file->addSeparator();
    QMenu *inner = file->addMenu(u"1019"_s);
    QAction *status = inner->addAction(u"1021"_s);
    QAction *dash = inner->addAction(u"-"_s);
    QAction own(u"1086"_s, &form);
    LocalizeForm(&form);
    QCOMPARE(file->title(), u"&File"_s);
    QCOMPARE(open->text(), u"&Open\tCtrl+O"_s);
    QCOMPARE(inner->title(), u"&View"_s);
    QCOMPARE(status->text(), u"Status &Bar"_s);
    QCOMPARE(own.text(), u"Sour&ce"_s);
    QCOMPARE(separator->text(), QString());
    QCOMPARE(dash->text(), u"-"_s);
}

void tst_LocalizeForm::tabs()
{
    QDialog form;
    QTabWidget pages(&form);
    QTabBar *bar = pages.findChild<QTabBar *>();
    pages.addTab(new QWidget, u"General"_s);
    pages.addTab(new QWidget, u"Own"_s);
    bar->setTabData(0, u"8027"_s);
    bar->setTabToolTip(0, u"8015"_s);
    bar->setTabToolTip(1, u"hint"_s);
    LocalizeForm(&form);
    QCOMPARE(pages.tabText(0), u"User Sites"_s);
    QCOMPARE(pages.tabToolTip(0), u"History"_s);
    QCOMPARE(pages.tabText(1), u"Own"_s);
    QCOMPARE(pages.tabToolTip(1), u"hint"_s);
}

void tst_LocalizeForm::toolBarButtons()
{
    QMainWindow form;
    QToolBar *bar = form.addToolBar(u"bar"_s);
    QAction *both = bar->addAction(u"1101"_s);
    both->setToolTip(u"1107"_s);
    QAction *toolTipOnly = bar->addAction(u"x"_s);
    toolTipOnly->setToolTip(u"1110"_s);
    QAction *separator = bar->addSeparator();
    separator->setToolTip(u"1111"_s);
    LocalizeForm(&form);
    QCOMPARE(both->text(), u"New"_s);
    QCOMPARE(both->toolTip(), u"New site"_s);
    QCOMPARE(toolTipOnly->text(), u"x"_s);
    QCOMPARE(toolTipOnly->toolTip(), u"Reload current site"_s);
    QCOMPARE(separator->toolTip(), u"1111"_s);
}

void tst_LocalizeForm::columnHeaders()
{
    QDialog form;
    QTreeWidget list(&form);
    list.setHeaderLabels({u"a"_s, u"b"_s, u"c"_s});
    list.headerItem()->setData(0, kTagRole, u"2503"_s);
    list.headerItem()->setData(1, kTagRole, u"2504"_s);
    LocalizeForm(&form);
    QCOMPARE(list.headerItem()->text(0), u"Site"_s);
    QCOMPARE(list.headerItem()->text(1), u"Status"_s);
    QCOMPARE(list.headerItem()->text(2), u"c"_s);
}

void tst_LocalizeForm::formsInsideAreLeftAlone()
{
    QMainWindow form;
    auto *area = new QMdiArea;
    form.setCentralWidget(area);
    auto *document = new QLabel(u"100"_s);
    area->addSubWindow(document);
    QDialog dialog(&form);
    QLabel count(u"102"_s, &dialog);
    LocalizeForm(&form);
    QCOMPARE(document->text(), u"100"_s);
    QCOMPARE(count.text(), u"102"_s);
}

QTEST_MAIN(tst_LocalizeForm)
#include "tst_localizeform.moc"
