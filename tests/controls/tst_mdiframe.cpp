#include "base/step.h"
#include "controls/MdiFrame.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QTest>

using namespace controls;
using namespace Qt::StringLiterals;

/// A form that counts what is done to it.
class Form : public QLineEdit
{
public:
    explicit Form(const QString &name)
    {
        setObjectName(name);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }
    int resizes = 0;
    int paints = 0;

protected:
    void resizeEvent(QResizeEvent *) override { ++resizes; }
    void paintEvent(QPaintEvent *) override { ++paints; }
};

/// A main window with a menu bar, as the worst that can happen to a frame, and a note of what the frame tells.
class Window : public QMainWindow
{
public:
    Window()
        : frame(new MdiFrame(this))
    {
        setWindowTitle(u"Ours"_s);
        menuBar()->addMenu(u"&File"_s);
        setCentralWidget(frame);
        resize(900, 600);
        const auto name = [](QWidget *form) { return form ? form->objectName() : u"-"_s; };
        connect(frame, &MdiFrame::formDeactivated, this, [=, this](QWidget *form) { log << u"off "_s + name(form); });
        connect(frame, &MdiFrame::formActivated, this, [=, this](QWidget *form) { log << u"on "_s + name(form); });
        connect(frame, &MdiFrame::formExposed, this, [=, this](QWidget *form, bool exposed) {
            told << (exposed ? u"seen "_s : u"covered "_s) + name(form);
        });
    }
    ~Window() override { qDeleteAll(forms); }
    Form *add(const QString &name)
    {
        auto *form = new Form(name);
        forms << form;
        frame->showForm(form);
        return form;
    }
    void open()
    {
        show();
        activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(this));
        settle();
    }
    static void settle()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    QStringList takeLog() { return std::exchange(log, {}); }

    MdiFrame *frame;
    QList<QPointer<Form>> forms;
    QStringList log;
    QStringList told;
};

class TestMdiFrame : public QObject
{
    Q_OBJECT
private slots:
    void onePairForEachRealChange()
    {
        Window window;
        Form *a = window.add(u"a"_s); // before the window is shown, as at the start of the program
        Form *b = window.add(u"b"_s);
        QCOMPARE(window.takeLog(), (QStringList{u"off -"_s, u"on a"_s, u"off a"_s, u"on b"_s}));
        QCOMPARE(window.frame->activeForm(), b);
        window.open();
        QCOMPARE(window.takeLog(), QStringList());

        window.frame->activateForm(a);
        window.frame->activateForm(a);
        QCOMPARE(window.takeLog(), (QStringList{u"off b"_s, u"on a"_s}));
        window.frame->activateNext();
        window.frame->activateNext();
        window.frame->activatePrevious();
        QCOMPARE(window.frame->activeForm(), b);
        window.takeLog();

        // Another window takes the activation, and this one is hidden and comes back.
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        window.hide();
        window.open();
        QCOMPARE(window.takeLog(), QStringList());
        QCOMPARE(window.frame->activeForm(), b);
        QVERIFY(b->isVisible());

        // The one that was used before comes up, not the neighbour; one that is covered goes unnoticed.
        Form *c = window.add(u"c"_s);
        window.frame->activateForm(a);
        window.frame->activateForm(b);
        window.takeLog();
        window.frame->removeForm(c);
        QCOMPARE(window.takeLog(), QStringList());
        window.frame->removeForm(b);
        QCOMPARE(window.takeLog(), (QStringList{u"off -"_s, u"on a"_s}));
        QVERIFY(!b->isVisible() && !b->parentWidget());
    }

    /// A handler may itself remove or activate; nobody is told twice.
    void handlersMayChangeTheFrame()
    {
        Window window;
        Form *a = window.add(u"a"_s);
        Form *b = window.add(u"b"_s);
        window.open();
        connect(b, &QLineEdit::textChanged, b, [&] { window.frame->removeForm(b); });
        window.takeLog();
        QTest::keyClicks(b, u"x"_s);
        QTRY_COMPARE(window.frame->subWindowList().size(), 1);
        QCOMPARE(window.takeLog(), (QStringList{u"off -"_s, u"on a"_s}));

        const auto once = connect(window.frame, &MdiFrame::formActivated, window.frame, [&](QWidget *form) {
            if (form && form->objectName() == u"d"_s)
                window.frame->activateForm(a);
        });
        window.add(u"d"_s);
        disconnect(once);
        QCOMPARE(window.frame->activeForm(), a);
        QCOMPARE(window.takeLog(), (QStringList{u"off a"_s, u"on d"_s, u"off d"_s, u"on a"_s}));
    }

    void switchingLaysOutOnlyWhatComesUp()
    {
        Window window;
        Form *a = window.add(u"a"_s);
        Form *b = window.add(u"b"_s);
        Form *c = window.add(u"c"_s);
        window.open();
        QTRY_VERIFY(c->paints > 0);
        QCOMPARE(c->mapTo(window.frame, QPoint()), QPoint());
        QCOMPARE(c->size(), window.frame->viewport()->size());
        QVERIFY(!a->isVisible() && !b->isVisible());
        QVERIFY(window.told.contains(u"covered a"_s) && window.told.contains(u"covered b"_s));

        window.frame->activateForm(a);
        Window::settle();
        for (Form *form : {a, b, c})
            form->resizes = form->paints = 0;
        window.frame->activateForm(b); // has never been seen in this size
        Window::settle();
        QCOMPARE(b->resizes, 1);
        QCOMPARE(b->size(), window.frame->viewport()->size());
        window.frame->activateForm(a);
        Window::settle();
        QCOMPARE(a->resizes + b->resizes + c->resizes, 1);

        window.resize(1000, 700);
        QTRY_COMPARE(a->size(), window.frame->viewport()->size());
        Window::settle();
        QCOMPARE(b->resizes, 1); // covered: learns of it when it comes up
        QCOMPARE(c->resizes, 0);
        QCOMPARE(c->paints, 0);
        window.frame->activateForm(b);
        QCOMPARE(b->resizes, 2);
        QCOMPARE(b->size(), window.frame->viewport()->size());
    }

    void statesOfTheChildren()
    {
        Window window;
        QList<Form *> forms;
        for (const QString &name : {u"a"_s, u"b"_s, u"c"_s, u"d"_s})
            forms << window.add(name);
        window.open();
        MdiFrame &frame = *window.frame;
        QCOMPARE(frame.WindowState(forms[0]), vbMaximized);
        QWidget outsider;
        QVERIFY_THROWS_EXCEPTION(ControlError, frame.WindowState(&outsider));

        window.told.clear();
        frame.Arrange(vbTileHorizontal);
        QCOMPARE(window.told.size(), 3); // all but the active one were covered
        QRegion tiled;
        int area = 0;
        for (const QMdiSubWindow *child : frame.subWindowList()) {
            QVERIFY(child->isVisible());
            tiled += child->geometry();
            area += child->width() * child->height();
        }
        const QRect room = frame.viewport()->rect();
        QCOMPARE(tiled, QRegion(room));
        QCOMPARE(area, room.width() * room.height());

        window.takeLog();
        frame.setWindowState(forms[3], vbMinimized);
        QCOMPARE(window.takeLog(), (QStringList{u"off d"_s, u"on c"_s}));
        QVERIFY(window.told.contains(u"covered d"_s));
        frame.activateForm(forms[3]);
        QCOMPARE(frame.WindowState(forms[3]), vbNormal);

        frame.Arrange(vbCascade);
        const QRect before = frame.subWindowList().last()->geometry();
        frame.setWindowState(forms[1], vbMaximized);
        QCOMPARE(frame.activeForm(), forms[1]);
        QCOMPARE(forms[1]->size(), room.size());
        frame.setWindowState(forms[1], vbNormal);
        QCOMPARE(frame.subWindowList().last()->geometry(), before);
    }

    /// The buttons of a child's own title bar.
    void titleBarOfAChild()
    {
        Window window;
        Form *a = window.add(u"a"_s);
        Form *b = window.add(u"b"_s);
        window.open();
        window.frame->setWindowState(b, vbNormal);
        QMdiSubWindow *child = window.frame->subWindowList().last();
        window.frame->setCaption(b, u"A page"_s);

        QTest::mouseClick(a, Qt::LeftButton); // into a form that lies behind
        QCOMPARE(window.frame->activeForm(), a);
        child->showMaximized();
        QVERIFY(!child->isMaximized());
        QCOMPARE(window.frame->WindowState(b), vbMaximized);
        QCOMPARE(window.frame->activeForm(), b);
        QCOMPARE(window.windowTitle(), u"Ours"_s);
        QVERIFY(!window.menuBar()->cornerWidget(Qt::TopRightCorner));
        child->showMinimized();
        QCOMPARE(window.frame->WindowState(b), vbMinimized);
        QCOMPARE(window.frame->WindowState(a), vbNormal);
        child->showMaximized();
        QCOMPARE(window.frame->WindowState(b), vbMaximized);
        QCOMPARE(b->size(), window.frame->viewport()->size());

        QList<QWidget *> asked;
        connect(window.frame, &MdiFrame::formCloseRequested, this, [&](QWidget *form) { asked << form; });
        child->close();
        QTRY_COMPARE(asked, QList<QWidget *>{b});
        QCOMPARE(window.frame->forms().size(), 2); // it is the program that closes
    }
};

QTEST_MAIN(TestMdiFrame)
#include "tst_mdiframe.moc"
