// The option list, the PTY list and the PTY search popup: which rows exist
// for each band and feature setting, what a tap does to the preferences and
// which signals follow, the PTY marks, and the search popup's states. Then the
// screen stack that shows them: which screen is shown and the display number,
// what is rebuilt and what is kept, the two return timers and the list scroll
// rule, and a PTY search from the option list through the popup and back.

#include "listrows.h"
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
#include <QListView>
#include <QScrollBar>
#include <QtTest>

using namespace tuner;

namespace {

// Each row as "item" or "item=value".
QStringList rowsOf(const QAbstractItemModel *model)
{
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        const QString value = model->index(row, 0).data(RoleCurrentValue).toString();
        rows << model->index(row, 0).data(RoleItemId).toString() + (value.isEmpty() ? QString() : '=' + value);
    }
    return rows;
}

// Records the order in which several signals arrive.
class Order : public QObject
{
public:
    template<typename Sender, typename Signal>
    void watch(Sender *sender, Signal signal, const QString &name)
    {
        QObject::connect(sender, signal, this, [this, name] { sequence.append(name); });
    }
    QStringList names() const { return sequence; }

private:
    QStringList sequence;
};

} // namespace

class tst_OptionLists : public QObject, private TunerFixture
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        m_stack.reset();
        m_state.reset();
        // The option table is process-wide state; every row listed again.
        for (tagTunerOpItem_T &record : tunerOpItems)
            record.showable = true;
    }

    // Set here: Local on, TA off, programme type 10; AF and Regional as the region leaves them.
    void optionRows_data()
    {
        QTest::addColumn<int>("band");
        QTest::addColumn<int>("afTaTp");
        QTest::addColumn<int>("regional");
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<bool>("scrollBar");

        const QStringList all{"0", "1=On", "3=On", "2=Off", "4=On", "5=Pop Music"};
        QTest::newRow("FM, all supported: six rows, AF before TA") << 0 << 1 << 1 << all << true;
        QTest::newRow("AM: automatic store and Local only") << 3 << 1 << 1 << QStringList{"0", "1=On"} << false;
        QTest::newRow("FM without AF/TA/TP") << 1 << 0 << 1 << QStringList{"0", "1=On", "4=On", "5=Pop Music"} << false;
        QTest::newRow("FM without Regional")
            << 2 << 1 << 0 << QStringList{"0", "1=On", "3=On", "2=Off", "5=Pop Music"} << false;
        // AF starts on only where the vehicle supports it.
        QTest::newRow("FM, unknown support values keep the rows")
            << 0 << 7 << 9 << QStringList{"0", "1=On", "3=Off", "2=Off", "4=On", "5=Pop Music"} << true;
        QTest::newRow("AM, unknown support values keep the rows")
            << 4 << 7 << 9 << QStringList{"0", "1=On", "3=Off", "2=Off", "4=On"} << false;
    }

    void optionRows()
    {
        QFETCH(int, band);
        QFETCH(int, afTaTp);
        QFETCH(int, regional);
        QFETCH(QStringList, rows);
        QFETCH(bool, scrollBar);
        newState(QStringLiteral("RdsAfTaTpSupport=%1 RegionalSupport=%2").arg(afTaTp).arg(regional));
        prefs()->setBand(Band(band));
        prefs()->setLocal(true);
        prefs()->setTa(false);
        prefs()->setPtyItem(10);
        OptionWidget options;
        QCOMPARE(rowsOf(options.model()), rows);
        QCOMPARE(options.model()->index(0, 0).data().toString(), QStringLiteral("Auto Store"));
        QCOMPARE(options.model()->index(9, 0).data(), QVariant());
        QCOMPARE(tunerOpItems[1].value, QStringLiteral("On")); // the table keeps the last values
        auto *bar = options.findChild<QScrollBar *>("Oth_0012_scroll_bar");
        QCOMPARE(bar->isVisibleTo(&options), scrollBar);
        // The list scrolls the form's own bar, which moves with it.
        QCOMPARE(options.findChild<QListView *>("Lst_0016_tuner_option_list")->verticalScrollBar(), bar);
        // Painting every row works (and is not empty).
        options.resize(800, 480);
        QVERIFY(!options.grab().isNull());
    }

    void optionTaps_data()
    {
        QTest::addColumn<int>("item");
        QTest::addColumn<QStringList>("emitted");
        QTest::addColumn<QString>("changed"); // the preference toggled, "" for none
        QTest::newRow("automatic store") << 0 << QStringList{"OpAutoScan", "backTunerPlayer"} << "";
        QTest::newRow("Local") << 1 << QStringList{"opLocalStatus"} << "local";
        QTest::newRow("TA") << 2 << QStringList{"opTaStatus"} << "ta";
        QTest::newRow("AF") << 3 << QStringList{"opAfStatus"} << "af";
        QTest::newRow("Regional") << 4 << QStringList{"opRegionalStatus"} << "regional";
        QTest::newRow("PTY") << 5 << QStringList{"showPTYWidget"} << "";
        QTest::newRow("unknown item only beeps") << 9 << QStringList() << "";
    }

    void optionTaps()
    {
        QFETCH(int, item);
        QFETCH(QStringList, emitted);
        QFETCH(QString, changed);
        newState();
        OptionWidget options;
        Order order;
        order.watch(&options, &OptionWidget::OpAutoScan, "OpAutoScan");
        order.watch(&options, &OptionWidget::backTunerPlayer, "backTunerPlayer");
        order.watch(&options, &OptionWidget::opLocalStatus, "opLocalStatus");
        order.watch(&options, &OptionWidget::opTaStatus, "opTaStatus");
        order.watch(&options, &OptionWidget::opAfStatus, "opAfStatus");
        order.watch(&options, &OptionWidget::opRegionalStatus, "opRegionalStatus");
        order.watch(&options, &OptionWidget::showPTYWidget, "showPTYWidget");
        const bool before[] = {prefs()->isLocal(), prefs()->ta(), prefs()->af(), prefs()->regional()};
        bool valueAtSignal = false;
        connect(&options, &OptionWidget::opTaStatus, this, [&] { valueAtSignal = prefs()->ta(); });
        QSignalSpy rebuilt(options.model(), &QAbstractItemModel::modelReset);
        forgetCalls();

        options.clicked(item);

        QCOMPARE(order.names(), emitted);
        QCOMPARE(m_fakes->describedCalls(m_fakes->mcu()), QStringList{"triggerBeep(0)"});
        const bool after[] = {prefs()->isLocal(), prefs()->ta(), prefs()->af(), prefs()->regional()};
        const QStringList names{"local", "ta", "af", "regional"};
        for (int i = 0; i < 4; ++i)
            QCOMPARE(after[i] != before[i], names[i] == changed);
        if (changed == QLatin1String("ta"))
            QCOMPARE(valueAtSignal, after[1]); // toggled before the signal
        QCOMPARE(rebuilt.count(), changed.isEmpty() ? 0 : 1);
    }

    // Taps reach the option list only while it is shown.
    void aTapOnTheRowReachesTheShownList()
    {
        newState();
        OptionWidget options;
        QSignalSpy local(&options, &OptionWidget::opLocalStatus);
        options.onItemClicked(options.model()->index(1, 0));
        QCOMPARE(local.count(), 0);

        options.show();
        QVERIFY(QTest::qWaitForWindowExposed(&options));
        auto *list = options.findChild<QListView *>("Lst_0016_tuner_option_list");
        const QPoint local1 = list->visualRect(options.model()->index(1, 0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, local1);
        QCOMPARE(local.count(), 1);
        QCOMPARE(options.model()->index(1, 0).data(RoleCurrentValue).toString(), QStringLiteral("On"));

        // Released on another row: no tap.
        QTest::mousePress(list->viewport(), Qt::LeftButton, {}, local1);
        QTest::mouseRelease(list->viewport(), Qt::LeftButton, {},
                            list->visualRect(options.model()->index(2, 0)).center());
        QCOMPARE(local.count(), 1);
    }

    // The PTY list of each standard, and the name the option row shows for a
    // chosen code (codes 0, 1, 10, 27, 28, 29, 30).
    void ptyRows_data()
    {
        QTest::addColumn<int>("support");
        QTest::addColumn<int>("rows");
        QTest::addColumn<QString>("last");
        QTest::addColumn<QStringList>("names");
        // clang-format off
        QTest::newRow("RDS") << 1 << 29 << "Documentary" << QStringList{"", "News", "Pop Music", "Oldies Music", "Folk Music", "Documentary", ""};
        QTest::newRow("RBDS, without 27 and 28") << 2 << 27 << "Weather" << QStringList{"", "News", "Country", "", "", "Weather", ""};
        QTest::newRow("no RDS: empty") << 0 << 0 << "" << QStringList{"", "", "", "", "", "", ""};
        QTest::newRow("unknown standard: empty") << 3 << 0 << "" << QStringList{"", "", "", "", "", "", ""};
        // clang-format on
    }

    void ptyRows()
    {
        QFETCH(int, support);
        QFETCH(int, rows);
        QFETCH(QString, last);
        QFETCH(QStringList, names);
        newState(QStringLiteral("RdsSupport=%1").arg(support));
        PTYWidget list;
        QCOMPARE(list.model()->rowCount(), rows);
        // Whatever the standard, code 1 is left out.
        QCOMPARE((QList<bool>{list.isPTYValid(1), list.isPTYValid(2), list.isPTYValid(29), list.isPTYValid(30)}),
                 (QList<bool>{false, true, true, false}));
        if (rows > 0) {
            QCOMPARE(list.model()->index(rows - 1, 0).data().toString(), last);
            QCOMPARE(list.model()->index(rows - 1, 0).data(RoleItemId).toInt(), 29);
            QCOMPARE(list.model()->index(0, 0).data(Qt::SizeHintRole).toSize(), QSize(540, 60));
        }
        QCOMPARE(list.findChild<QListView *>("Lst_0003_pty_list")->verticalScrollBar(),
                 list.findChild<QScrollBar *>("Oth_0009_scroll_bar"));
        list.resize(800, 480);
        QVERIFY(!list.grab().isNull());

        OptionWidget options;
        QStringList chosen, shown;
        for (int code : {0, 1, 10, 27, 28, 29, 30}) {
            options.onCurPTYItem(code);
            chosen << prefs()->selectPTY();
            shown << options.model()->index(5, 0).data(RoleCurrentValue).toString();
        }
        QCOMPARE(chosen, names);
        QCOMPARE(shown, names);
    }

    void ptyMarks_data()
    {
        QTest::addColumn<int>("support");
        QTest::addColumn<int>("stored"); // the preferences' chosen type
        QTest::addColumn<int>("received");
        QTest::addColumn<int>("marked"); // code of the checked row, 0 for none
        QTest::addColumn<int>("storedAfter");
        QTest::newRow("a received type takes the mark and clears the choice") << 1 << 4 << 10 << 10 << 0;
        QTest::newRow("received 0 keeps the mark on the choice") << 1 << 4 << 0 << 4 << 4;
        QTest::newRow("received 30 keeps the mark on the choice") << 1 << 4 << 30 << 4 << 4;
        QTest::newRow("RBDS 27 counts as invalid") << 2 << 5 << 27 << 5 << 5;
        QTest::newRow("RBDS 29 is valid") << 2 << 5 << 29 << 29 << 0;
        QTest::newRow("no valid choice, no mark") << 1 << 0 << 0 << 0 << 0;
    }

    void ptyMarks()
    {
        QFETCH(int, support);
        QFETCH(int, stored);
        QFETCH(int, received);
        QFETCH(int, marked);
        QFETCH(int, storedAfter);
        newState(QStringLiteral("RdsSupport=%1").arg(support));
        PTYWidget list;
        prefs()->setPty(stored);
        list.onPTYChanged(received);
        QList<int> checked;
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            const QModelIndex index = list.model()->index(row, 0);
            if (index.data(Qt::CheckStateRole).toInt() == Qt::Checked)
                checked.append(index.data(RoleItemId).toInt());
        }
        QCOMPARE(checked, marked ? QList<int>{marked} : QList<int>());
        QCOMPARE(prefs()->pty(), storedAfter);
    }

    void ptyTapNamesThenChecksAndBeeps()
    {
        newState();
        PTYWidget list;
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        Order order;
        order.watch(&list, &PTYWidget::PTYSearchName, "PTYSearchName");
        order.watch(&list, &PTYWidget::PTYChecked, "PTYChecked");
        QSignalSpy checked(&list, &PTYWidget::PTYChecked);

        // A drag moves the list and taps nothing, though its row stays under the finger.
        auto *view = list.findChild<QListView *>();
        const auto send = [&](QEvent::Type type, int y, Qt::MouseButtons held) {
            QMouseEvent event(type, QPoint(200, y), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held,
                              {});
            QApplication::sendEvent(view->viewport(), &event);
        };
        send(QEvent::MouseButtonPress, 250, Qt::LeftButton);
        for (int y = 230; y >= 50; y -= 20) {
            send(QEvent::MouseMove, y, Qt::LeftButton);
            QTest::qWait(5);
        }
        send(QEvent::MouseButtonRelease, 50, Qt::NoButton);
        QTRY_VERIFY(view->verticalScrollBar()->value() > 0);
        QCOMPARE(checked.count(), 0);
        forgetCalls();
        list.onPTYSelected(list.model()->index(3, 0));
        QCOMPARE(order.names(), (QStringList{"PTYSearchName", "PTYChecked"}));
        QCOMPARE(checked.first().at(0).toInt(), 4);
        QCOMPARE(prefs()->pty(), 4);
        QCOMPARE(m_fakes->describedCalls(m_fakes->mcu()), QStringList{"triggerBeep(0)"});
        QCOMPARE(list.model()->index(3, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        // Once a received type is marked, a tap no longer moves the mark.
        list.onPTYChanged(10);
        list.onPTYSelected(list.model()->index(5, 0));
        QCOMPARE(list.model()->index(9, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QCOMPARE(list.model()->index(5, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    }

    void searchPopupStates()
    {
        newState();
        prefs()->setPTYSerchName(QStringLiteral("Rock Music"));
        prefs()->setPtySerchstate(3);
        PTYSearchWidget popup; // built in the middle of a search
        auto *status = popup.findChild<QLabel *>("Txt_0110_line1");
        auto *name = popup.findChild<QLabel *>("Txt_0111_line2");
        auto *dots = popup.findChild<QLabel *>("Txt_0464_animation");
        QCOMPARE(status->text(), QStringLiteral("Searching"));
        QCOMPARE(name->text(), QStringLiteral("Rock Music"));
        QVERIFY(popup.isAnimating());
        TUNER_VERIFY_AFTER_PERIOD(500, dots->text() == QLatin1String("."));
        QTRY_COMPARE(dots->text(), QStringLiteral(".."));
        popup.onPTYSerachStatus(3); // no restart, no phase jump
        QTRY_COMPARE(dots->text(), QStringLiteral("..."));

        popup.onPTYSerachName(QStringLiteral("Jazz Music"));
        QCOMPARE(name->text(), QStringLiteral("Rock Music")); // shown with the next status
        popup.onPTYSerachStatus(4);
        QCOMPARE(status->text(), QStringLiteral("Not Found"));
        QCOMPARE(name->text(), QStringLiteral("Jazz Music"));
        QVERIFY(!popup.isAnimating());
        QVERIFY(dots->isHidden());
        popup.onPTYSerachStatus(6);
        QCOMPARE(status->text(), QStringLiteral("Not Found"));
        popup.onPTYSerachStatus(7);
        QCOMPARE(status->text(), QStringLiteral("Not Found"));
    }

    void searchPopupCloseIsTheLastThing()
    {
        newState();
        auto *popup = new PTYSearchWidget;
        popup->show();
        QVERIFY(QTest::qWaitForWindowExposed(popup));
        bool deleted = false;
        // The receiver deletes the popup at once, as the screen stack does.
        connect(popup, &PTYSearchWidget::closePTYSearchWnd, this, [&] {
            delete popup;
            deleted = true;
        });
        forgetCalls();
        popup->onClose_0085();
        QVERIFY(deleted);
        QVERIFY(prefs()->closeClicked());
        QCOMPARE(m_fakes->describedCalls(m_fakes->mcu()), QStringList{"triggerBeep(0)"});
    }

    void aRunningSearchComesBackWithTheWindow()
    {
        newState();
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
        makeStack();
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
        makeStack();
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
        makeStack();
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
        makeStack();
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
        makeStack();
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
        makeStack();
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
    void makeStack()
    {
        newState();
        m_stack = std::make_unique<MainWidget>();
        QVERIFY(shown(m_stack));
    }

    std::unique_ptr<MainWidget> m_stack;
};

QTEST_MAIN(tst_OptionLists)
#include "tst_optionlists.moc"
