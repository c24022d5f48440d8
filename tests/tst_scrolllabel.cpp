// The marquee label: one full pass per start, a stop at the start, the pause
// after a click, and touches reported as clicked().

#include "scrolllabel.h"

#include <QtTest>

class tst_ScrollLabel : public QObject
{
    Q_OBJECT

private slots:
    void aPassRunsOnceAndStopsAtTheStart_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("longer than the label") << "ROCK ANTENNE - THE BEST ROCK OF ALL TIME";
        QTest::newRow("narrower than the label still runs a full pass") << "FFH";
    }

    void aPassRunsOnceAndStopsAtTheStart()
    {
        QFETCH(QString, text);
        ScrollLabel label;
        label.resize(249, 44);
        label.setText(text);
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        QSignalSpy state(&label, &ScrollLabel::slabelState);

        label.onStart();
        QCOMPARE(label.timerInterval(), 20);
        QTRY_VERIFY(label.xPosition() < -4);
        QVERIFY(label.isRunning());
        QTRY_VERIFY_WITH_TIMEOUT(!label.isTimerActive(), 15000);
        QCOMPARE(label.xPosition(), 0);
        QCOMPARE(label.isRunning(), false);
        QCOMPARE(state.last().at(0).toBool(), false);
        QCOMPARE(state.count(QList<QVariant>{false}), 1);
    }

    void clickRestartsAfterAPause()
    {
        ScrollLabel label;
        label.resize(249, 44);
        label.setText(QStringLiteral("BAYERN 3 - DAS BESTE AM RADIO"));
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        QSignalSpy state(&label, &ScrollLabel::slabelState);
        QSignalSpy clicked(&label, &ScrollLabel::clicked);
        connect(&label, &ScrollLabel::clicked, &label, &ScrollLabel::slotClicked); // as the screen wires it
        label.onStart();
        QTRY_VERIFY(label.xPosition() < -10);
        label.onStop(); // back to the start, still
        QCOMPARE(label.xPosition(), 0);
        QVERIFY(!label.isTimerActive());
        label.onStart();
        QTRY_VERIFY(label.xPosition() < -10);

        QTest::mousePress(&label, Qt::LeftButton); // any press is a click
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(label.xPosition(), 0);
        QCOMPARE(label.timerInterval(), 2000); // a pause at the start position
        QVERIFY(label.isTimerActive());
        // The paint at the start position ended the pass in progress.
        QVERIFY(state.contains(QList<QVariant>{false}));
    }
};

QTEST_MAIN(tst_ScrollLabel)
#include "tst_scrolllabel.moc"
