#include "controls/PageBox.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

using namespace controls;
using namespace Qt::StringLiterals;

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

class TestPageBox : public QObject
{
    Q_OBJECT
private slots:
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
};

QTEST_MAIN(TestPageBox)
#include "tst_pagebox.moc"
