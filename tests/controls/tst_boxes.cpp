#include "base/step.h"
#include "controls/ComboBox.h"
#include "controls/PageBox.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStringListModel>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using controls::ComboBox;
using namespace controls;

namespace {

/// A window with an address line above a page that can have the focus.
class Window : public QWidget
{
public:
    Window()
        : address(new QLineEdit(this))
        , page(new QWidget(this))
    {
        auto *column = new QVBoxLayout(this);
        column->addWidget(address);
        column->addWidget(page, 1);
        page->setFocusPolicy(Qt::StrongFocus);
        resize(700, 500);
        show();
        activateWindow();
    }
    ~Window() override { delete page; } // its boxes answer while the note of answers is still there
    PageBox *ask(const PageBox::Content &content)
    {
        return new PageBox(page, content, [this](bool accepted, const QString &text, const QString &password) {
            answers << u"%1|%2|%3"_s.arg(accepted).arg(text, password);
        });
    }
    static PageBox::Content confirm()
    {
        PageBox::Content content;
        content.title = u"Corvane"_s;
        content.from = u"https://a.test"_s;
        content.text = u"Really?"_s;
        content.acceptCaption = u"OK"_s;
        content.rejectCaption = u"Cancel"_s;
        return content;
    }

    QLineEdit *address;
    QPointer<QWidget> page;
    QStringList answers;
};

} // namespace

/// The address box as the main window uses it, in a window with something else that can have the focus, and boxes over
/// pages.
class TestBoxes : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(m_window.get());
        m_box = new ComboBox;
        m_other = new QLineEdit;
        layout->addWidget(m_box);
        layout->addWidget(m_other);
        for (const auto &[signal, name] : {std::pair{&ComboBox::gotFocus, u"got "_s},
                                           {&ComboBox::lostFocus, u"lost "_s},
                                           {&ComboBox::beginEdit, u"begin "_s},
                                           {&ComboBox::endEdit, u"end "_s},
                                           {&ComboBox::listItemPicked, u"picked "_s}})
            connect(m_box, signal, this, [this, name = name] { m_log << name + m_box->Text(); });
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_box->setFocus();
        m_log.clear();
    }

    void cleanup() { m_window.reset(); }

    void changesOfTheListLeaveTheEditField()
    {
        QLineEdit &edit = *m_box->lineEdit();
        m_box->setText(u"second"_s); // as an entry will be
        edit.setSelection(5, -4);    // backwards
        int changes = 0;
        connect(m_box, &ComboBox::textChanged, this, [&] { ++changes; });

        m_box->InsertItem(0, u"first"_s, 4);
        m_box->InsertItem(0, u"second"_s, 4);
        m_box->InsertItem(2, u"last"_s);
        QCOMPARE(m_box->List(0), u"second"_s);
        QCOMPARE(m_box->List(2), u"last"_s);
        QCOMPARE(m_box->ItemIcon(1), 4);
        QCOMPARE(m_box->ItemIcon(2), -1);
        m_box->Clear();
        QCOMPARE(m_box->Text(), u"second"_s);
        QCOMPARE(edit.cursorPosition(), 1);
        QCOMPARE(edit.selectedText(), u"econ"_s);
        QCOMPARE(changes, 0);
        QCOMPARE(m_log, QStringList());
    }

    void pickByMouse() { pick(true); }
    void pickByKeyboard() { pick(false); }

    void typingIsNeverAPick()
    {
        m_box->InsertItem(0, u"entry"_s);
        QTest::keyClicks(m_box, u"entry"_s);
        QTest::keyClick(m_box, Qt::Key_Return);
        QTest::keyClicks(m_box, u"x"_s);
        QTest::keyClick(m_box, Qt::Key_Backspace);
        QCOMPARE(m_box->lineEdit()->cursorPosition(), 5);
        m_other->setFocus();
        QCOMPARE(m_box->lineEdit()->cursorPosition(), 0); // a long address shows its beginning
        QCOMPARE(m_log,
                 QStringList({u"begin e"_s, u"end entry"_s, u"begin entryx"_s, u"end entry"_s, u"lost entry"_s}));

        // A wheel over the box and page keys do not step through the entries.
        m_log.clear();
        m_box->setText(u"typed"_s);
        QWheelEvent wheel({5, 5}, m_box->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(m_box, &wheel);
        m_box->setFocus();
        QTest::keyClick(m_box, Qt::Key_PageDown);
        QCOMPARE(m_box->Text(), u"typed"_s);
        QCOMPARE(m_log, QStringList({u"got typed"_s}));
    }

    /// Of an entry that somebody has pasted, only the beginning is measured and drawn.
    void hugeEntry()
    {
        m_box->InsertItem(0, QString(1'000'000, u'x'));
        QCOMPARE_LT(m_box->view()->sizeHintForIndex(m_box->model()->index(0, 0)).width(), 20'000);
        QCOMPARE(m_box->List(0).size(), 1'000'000);
    }

    void keysComeBeforeTheField()
    {
        QStringList keys;
        int swallowed = -1;
        connect(m_box, &ComboBox::key, this, [&](int &code, int shift) {
            const bool modifier = code >= 16 && code <= 18;
            if (!modifier)
                keys << u"%1/%2 %3"_s.arg(code).arg(shift).arg(m_box->Text());
            if (code == swallowed)
                code = 0;
        });
        QTest::keyClick(m_box, Qt::Key_A, Qt::ShiftModifier);
        QTest::keyClick(m_box, Qt::Key_Return, Qt::ControlModifier);
        QTest::keyClick(m_box, Qt::Key_Enter, Qt::KeypadModifier);
        QTest::keyClick(m_box, Qt::Key_Escape);
        QTest::keyClick(m_box, Qt::Key_F4, Qt::ControlModifier | Qt::AltModifier);
        QCOMPARE(keys, QStringList({u"65/1 "_s, u"13/2 a"_s, u"13/0 a"_s, u"27/0 a"_s, u"115/6 a"_s}));
        swallowed = 8;
        QTest::keyClick(m_box, Qt::Key_Backspace);
        QCOMPARE(m_box->Text(), u"a"_s);

        // A handler may end the box.
        connect(m_box, &ComboBox::key, this, [this] { delete m_box; });
        QTest::keyClick(m_box->lineEdit(), Qt::Key_Return);
        QVERIFY(!m_window->findChild<ComboBox *>());
    }

    void completionIsTyping()
    {
        // The completed text is an entry as well: still no pick.
        m_box->InsertItem(0, u"http://example.com/"_s);
        QStringListModel model({u"http://example.com/"_s, u"http://example.net/"_s});
        QCompleter completer(&model);
        m_other->setFocus();
        m_box->setCompleter(&completer);
        m_box->setFocus();
        m_log.clear();
        QTest::keyClicks(m_box, u"http"_s);
        QTRY_VERIFY(completer.popup()->isVisible());
        // Nothing is chosen yet, so Enter would send what was typed.
        QCOMPARE(m_box->Text(), u"http"_s);
        QTest::keyClick(completer.popup(), Qt::Key_Down);
        QTest::keyClick(completer.popup(), Qt::Key_Return);
        QTRY_VERIFY(!completer.popup()->isVisible());
        QCOMPARE(m_box->Text(), u"http://example.com/"_s);
        QVERIFY(m_log.filter(u"picked"_s).isEmpty() && m_log.filter(u"lost"_s).isEmpty());
        m_box->setCompleter(nullptr);
    }

    void answersOnce()
    {
        // By the keyboard, by the button's object name, and by the end of the box or of its page.
        for (const QString &how : {u"enter"_s, u"enter-reject"_s, u"esc"_s, u"reject"_s, u"delete"_s, u"page"_s}) {
            const QString answer = how == u"enter"_s ? u"1|typed|secret"_s : u"0||"_s;
            Window window;
            QVERIFY(QTest::qWaitForWindowActive(&window));
            window.page->setFocus();
            PageBox::Content content = Window::confirm();
            content.wantsText = content.wantsPassword = true;
            content.defaultText = u"default"_s;
            QPointer<PageBox> box = window.ask(content);
            QTest::keyClicks(QApplication::focusWidget(), u"typed"_s); // over the default, which is selected
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QTest::keyClicks(QApplication::focusWidget(), u"secret"_s);

            if (how == u"enter"_s)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            else if (how == u"esc"_s)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            else if (how == u"delete"_s)
                delete box;
            else if (how == u"page"_s)
                delete window.page;
            else if (how == u"enter-reject"_s) {
                box->findChild<QPushButton *>(u"reject"_s)->setFocus();
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter);
            } else
                QTest::mouseClick(box->findChild<QPushButton *>(how), Qt::LeftButton);
            QCOMPARE(window.answers, QStringList{answer});
            if (how != u"page"_s && how != u"delete"_s)
                QVERIFY(window.page->hasFocus());
            QTRY_VERIFY(!box);
            QCOMPARE(window.answers.size(), 1);
        }
    }

    void focusComesFromThePageOnlyAndStaysInside()
    {
        Window window;
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.address->setFocus();
        PageBox *box = window.ask(Window::confirm());
        QVERIFY(window.address->hasFocus()); // who types there goes on typing
        window.page->setFocus();
        auto *accept = box->findChild<QPushButton *>(u"accept"_s);
        QVERIFY(accept->hasFocus());
        for (int i = 0; i < 7; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, i < 4 ? Qt::NoModifier : Qt::ShiftModifier);
            QVERIFY(box->isAncestorOf(QApplication::focusWidget()));
        }
        window.address->setFocus();
        QVERIFY(window.address->hasFocus());
    }

    void coversItsPageAndShowsAllOfTheText()
    {
        Window window;
        PageBox::Content content = Window::confirm();
        content.text = u"<b>line</b>\n"_s.repeated(200);
        PageBox *box = window.ask(content);
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(box->geometry(), window.page->rect());
        window.resize(400, 300);
        QTRY_COMPARE(box->size(), window.page->size());
        const QRect panel = box->findChild<QFrame *>(u"panel"_s)->geometry();
        QVERIFY(box->rect().contains(panel));
        auto *text = box->findChild<QLabel *>(u"text"_s);
        QCOMPARE(text->textFormat(), Qt::PlainText);
        QTRY_VERIFY(box->findChild<QScrollArea *>()->verticalScrollBar()->maximum() > 0);
        QVERIFY(box->accessibleName().contains(u"https://a.test"_s));
    }

private:
    void pick(bool mouse)
    {
        for (const QString &entry : {u"third"_s, u"second"_s, u"first"_s})
            m_box->InsertItem(0, entry);
        const auto pickRow = [&](int row) {
            QTest::keyClick(m_box, Qt::Key_Down);
            QAbstractItemView *list = m_box->view();
            QVERIFY(QTest::qWaitForWindowExposed(list));
            const QModelIndex index = m_box->model()->index(row, 0);
            if (mouse) {
                // For one double click interval the list takes a release for the end of the click that opened it.
                const QPoint middle = list->visualRect(index).center();
                QTest::mouseMove(list->viewport(), middle);
                QTRY_VERIFY((QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, middle), !list->isVisible()));
            } else {
                list->setCurrentIndex(index);
                QTest::keyClick(list, Qt::Key_Return);
            }
            QTRY_VERIFY(!list->isVisible());
        };

        QTest::keyClicks(m_box, u"x"_s);
        pickRow(1);
        QCOMPARE(m_log, QStringList({u"begin x"_s, u"end second"_s, u"picked second"_s}));
        // The same entry again is a pick again, and without an edit there is none to end.
        m_box->setText(u"elsewhere"_s);
        m_log.clear();
        pickRow(1);
        QCOMPARE(m_log, QStringList({u"picked second"_s}));
    }

    std::unique_ptr<QWidget> m_window;
    ComboBox *m_box = nullptr;
    QLineEdit *m_other = nullptr;
    /// What the box reported, in order, with its text at that moment.
    QStringList m_log;
};

QTEST_MAIN(TestBoxes)
#include "tst_boxes.moc"
