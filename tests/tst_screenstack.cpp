// The screen stack: which screen is shown and the display number, what is
// rebuilt and what is kept, the two return timers and the list scroll rule,
// and a PTY search from the option list through the popup and back.

#include "mainwidget.h"
#include "optionwidget.h"
#include "ptysearchwidget.h"
#include "ptywidget.h"
#include "timing.h"
#include "tunerfixture.h"
#include "tuneroptions.h"
#include "tunerplayer.h"
#include "warningcounter.h"

#include <QLabel>
#include <QtTest>

using namespace tuner;

class tst_ScreenStack : public QObject, private TunerFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        newState();
        m_stack = std::make_unique<MainWidget>();
        QVERIFY(shown(m_stack));
    }

    void cleanup()
    {
        m_stack.reset();
        m_state.reset();
    }

    void aRunningSearchComesBackWithTheWindow()
    {
        m_stack.reset();
        prefs()->setPtySerchstate(3);
        prefs()->setPTYSerchName(QStringLiteral("Sport"));
        m_stack = std::make_unique<MainWidget>();
        QVERIFY(m_stack->searchPopup());
        QCOMPARE(g_TunerCurDSPL, 4);
        QVERIFY(m_stack->searchPopup()->isAnimating());
        QVERIFY(m_stack->player()->isHidden());
    }

    void optionListIsRebuiltPtyListKept()
    {
        // It starts on the player and swallows language changes.
        QCOMPARE(g_TunerCurDSPL, 1);
        QVERIFY(m_stack->player()->isVisible());
        QVERIFY(!m_stack->optionList() && !m_stack->ptyList() && !m_stack->searchPopup());
        QEvent change(QEvent::LanguageChange);
        QVERIFY(QCoreApplication::sendEvent(m_stack.get(), &change));

        m_stack->onShowOptionWnd();
        QPointer<OptionWidget> first = m_stack->optionList();
        QVERIFY(first && first->isVisible());
        QCOMPARE(g_TunerCurDSPL, 2);
        m_stack->onShowOptionWnd();
        QVERIFY(m_stack->optionList() != first.data());
        QVERIFY(first->isHidden());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(first.isNull()); // its signals reach nothing any more
        emit m_stack->optionList()->backTunerPlayer();
        QCOMPARE(g_TunerCurDSPL, 1);
        QVERIFY(!m_stack->optionList());

        // The PTY list, unlike the option list, is kept.
        m_stack->onShowPTYWdiget();
        PTYWidget *list = m_stack->ptyList();
        QVERIFY(list && list->isVisible());
        QCOMPARE(g_TunerCurDSPL, 3);
        m_stack->onShowTunerPlayer();
        QVERIFY(list->isHidden());
        m_stack->onShowPTYWdiget();
        QCOMPARE(m_stack->ptyList(), list);
    }

    void searchPopupFollowsTheSearchStatus_data()
    {
        QTest::addColumn<QList<int>>("statuses");
        QTest::addColumn<int>("display");
        QTest::addColumn<bool>("popup");
        QTest::addColumn<bool>("closeShown");
        QTest::newRow("searching: no Close") << QList<int>{3} << 4 << true << false;
        QTest::newRow("not found: Close") << QList<int>{3, 4} << 5 << true << true;
        QTest::newRow("not found without a popup builds one") << QList<int>{4} << 5 << true << true;
        QTest::newRow("found: the PTY list") << QList<int>{3, 6} << 3 << false << false;
        QTest::newRow("5 changes nothing") << QList<int>{3, 5} << 4 << true << false;
    }

    void searchPopupFollowsTheSearchStatus()
    {
        QFETCH(QList<int>, statuses);
        QFETCH(int, display);
        QFETCH(bool, popup);
        QFETCH(bool, closeShown);
        for (int status : statuses)
            m_stack->PTYsearchStatus(status);
        QCOMPARE(g_TunerCurDSPL, display);
        QCOMPARE(m_stack->searchPopup() != nullptr, popup);
        if (popup) {
            QVERIFY(m_stack->searchPopup()->isVisible());
            QCOMPARE(!m_stack->searchPopup()->findChild<QWidget *>("Key_0085_close")->isHidden(), closeShown);
            QCOMPARE(!m_stack->searchPopup()->findChild<QWidget *>("Txt_0112_close")->isHidden(), closeShown);
        }
    }

    // Five seconds after a search ends the player is back (not found), or
    // the option list (found, from the PTY list): not before, and by then.
    void searchEndReturnsAfterFiveSeconds_data()
    {
        QTest::addColumn<int>("result");
        QTest::addColumn<int>("shownFirst");
        QTest::addColumn<int>("shownAfter");
        QTest::newRow("not found: the player") << 4 << 5 << 1;
        QTest::newRow("found: the PTY list, then the options") << 6 << 3 << 2;
    }

    void searchEndReturnsAfterFiveSeconds()
    {
        QFETCH(int, result);
        QFETCH(int, shownFirst);
        QFETCH(int, shownAfter);
        m_stack->PTYsearchStatus(3);
        m_stack->PTYsearchStatus(result);
        QCOMPARE(g_TunerCurDSPL, shownFirst);
        TUNER_VERIFY_AFTER_PERIOD(5000, g_TunerCurDSPL == shownAfter);
        QCOMPARE(m_stack->searchPopup(), nullptr);
        QVERIFY(shownAfter == 1 ? m_stack->player()->isVisible() : m_stack->optionList() != nullptr);
        if (result == 6) { // the search is over: the list no longer sends the driver back by itself
            m_stack->onShowPTYWdiget();
            QVERIFY(!m_stack->optionReturnTimerActive());
        }
    }

    // After a search the list sends the driver back unless touched; a list
    // opened without a search stays.
    void touchingTheListRestartsTheWait()
    {
        m_stack->onShowOptionWnd();
        emit m_stack->optionList()->showPTYWidget();
        QCOMPARE(g_TunerCurDSPL, 3);
        m_stack->onListStateChange(QScroller::Inactive);
        QVERIFY(!m_stack->optionReturnTimerActive());
        m_stack->PTYsearchStatus(3);
        m_stack->PTYsearchStatus(6);
        QVERIFY(m_stack->optionReturnTimerActive());
        const std::pair<QScroller::State, bool> waitsAfter[] = {{QScroller::Pressed, true},
                                                                {QScroller::Dragging, false},
                                                                {QScroller::Scrolling, false},
                                                                {QScroller::Inactive, true}};
        for (const auto &[state, waits] : waitsAfter) {
            m_stack->onListStateChange(state);
            QCOMPARE(m_stack->optionReturnTimerActive(), waits);
        }
    }

    void closingThePopupShowsTheListFromTheTop()
    {
        m_stack->onShowPTYWdiget();
        m_stack->PTYsearchStatus(3);
        m_stack->PTYsearchStatus(4);
        QPointer<PTYSearchWidget> popup = m_stack->searchPopup();
        WarningCounter warnings;
        popup->onClose_0085();
        QCOMPARE(warnings.lines(), QStringList()); // a normal tap is no warning
        QCOMPARE(g_TunerCurDSPL, 3);
        QVERIFY(!m_stack->searchPopup());
        QVERIFY(!prefs()->closeClicked()); // used by the list and reset
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(popup.isNull());
        QVERIFY(!m_stack->searchDoneTimerActive());
    }

    void aSearchFromTheOptionList()
    {
        m_stack->onShowOptionWnd();
        emit m_stack->optionList()->showPTYWidget();
        PTYWidget *list = m_stack->ptyList();
        forgetCalls();
        list->onPTYSelected(list->model()->index(9, 0)); // Pop Music
        QCOMPARE(prefs()->PTYseachItem(), QStringLiteral("Pop Music"));
        QVERIFY(m_fakes->describedCalls(m_fakes->radio()).contains("ptySearch(10)"));
        // The radio's reports arrive through the main window.
        m_stack->PTYsearchStatus(3);
        QCOMPARE(m_stack->searchPopup()->findChild<QLabel *>("Txt_0111_line2")->text(), QStringLiteral("Pop Music"));
    }

private:
    std::unique_ptr<MainWidget> m_stack;
};

QTEST_MAIN(tst_ScreenStack)
#include "tst_screenstack.moc"
