// The head-unit framework stand-in, where the tuner relies on its timing or
// its data: long-press buttons, the theme's images and the text catalogue
// (the list scroller is tried through the option list). What the stand-in
// merely passes through is not tested again.

#include "pushbutton.h"
#include "translator.h"

#include <QPushButton>
#include <QScopeGuard>
#include <QtTest>

namespace {

// The first group of each match of `pattern` in the project's own sources
// (neither the build trees nor the tests).
QSet<QString> sourceMatches(const QString &pattern, const QStringList &nameFilters)
{
    const QRegularExpression re(pattern);
    QSet<QString> found;
    QDirIterator it(QStringLiteral(TUNER_SOURCE_DIR), nameFilters, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile file(path);
        if (path.contains(QLatin1String("/build")) || path.contains(QLatin1String("/tests/"))
            || !file.open(QIODevice::ReadOnly))
            continue;
        auto matches = re.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext())
            found.insert(matches.next().captured(1));
    }
    return found;
}

} // namespace

class tst_HostFramework : public QObject
{
    Q_OBJECT

private slots:
    void pushButtonTiming_data()
    {
        QTest::addColumn<bool>("holdLong");
        QTest::addColumn<bool>("releaseInside");
        QTest::addColumn<bool>("hideWhileHeld");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<QList<int>>("counts"); // shortClicked, longPressed, longReleased

        QTest::newRow("short press") << false << true << false << true << QList<int>{1, 0, 0};
        QTest::newRow("short press released outside") << false << false << false << true << QList<int>{0, 0, 0};
        QTest::newRow("long press") << true << true << false << true << QList<int>{0, 1, 1};
        QTest::newRow("long press released outside") << true << false << false << true << QList<int>{0, 1, 1};
        QTest::newRow("hidden during a long press") << true << true << true << true << QList<int>{0, 1, 1};
        QTest::newRow("hidden during a short press") << false << true << true << true << QList<int>{0, 0, 0};
        QTest::newRow("disabled button") << true << true << false << false << QList<int>{0, 0, 0};
    }

    void pushButtonTiming()
    {
        QFETCH(bool, holdLong);
        QFETCH(bool, releaseInside);
        QFETCH(bool, hideWhileHeld);
        QFETCH(bool, enabled);
        QFETCH(QList<int>, counts);

        QWidget window;
        QPushButton button(&window);
        button.setGeometry(10, 10, 100, 60);
        button.setEnabled(enabled);
        window.show();
        cm::PushButton helper(&button);
        helper.setLongPressedInterval(80);
        QSignalSpy shortSpy(&helper, &cm::PushButton::shortClicked);
        QSignalSpy longSpy(&helper, &cm::PushButton::longPressed);
        QSignalSpy releasedSpy(&helper, &cm::PushButton::longReleased);

        QTest::mousePress(&button, Qt::LeftButton, {}, QPoint(50, 30));
        if (holdLong && enabled)
            QVERIFY(longSpy.wait(2000));
        if (hideWhileHeld)
            button.hide();
        QTest::mouseRelease(&button, Qt::LeftButton, {}, releaseInside ? QPoint(50, 30) : QPoint(300, 30));
        if (!holdLong)
            QCOMPARE(longSpy.count(), 0); // the timer must not fire after a short release
        QCOMPARE((QList<int>{shortSpy.count(), longSpy.count(), releasedSpy.count()}), counts);
    }

    // The theme must have an image for every path a form or the code names.
    void everyImagePathInFormsAndSourcesLoads()
    {
        const QSet<QString> paths
            = sourceMatches(QStringLiteral("(:/Resource/[A-Za-z0-9_/]+\\.png)"), {"*.ui", "*.cpp", "*.h"});
        QVERIFY(paths.size() >= 30); // the tuner screen alone names 38
        for (const QString &image : paths)
            QVERIFY2(!QPixmap(image).isNull(), qPrintable(image + QStringLiteral(" does not load")));
    }

    void catalogueCoversEveryTextIdInUse_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("news"); // text 53: the catalogue is the one asked for
        // clang-format off
        QTest::newRow("English") << "en" << "News";
        QTest::newRow("German") << "de" << "Nachrichten";
        // clang-format on
    }

    // Every text id the tuner asks for: each literal id in its code, and those
    // it computes: state words, band names and units, search status lines,
    // list titles, the programme types of RDS and RBDS.
    void catalogueCoversEveryTextIdInUse()
    {
        QFETCH(QString, language);
        QFETCH(QString, news);
        const auto english = qScopeGuard([] { Translator::setLanguage(QStringLiteral("en")); });
        QVERIFY(Translator::setLanguage(language));
        QCOMPARE(Translator::translate(53), news);
        QSet<int> ids{2, 3, 4, 39, 40, 41, 42, 43, 44, 45, 47, 48, 49, 50, 51, 104, 105, 106, 189};
        for (int id = 53; id <= 103; ++id)
            ids.insert(id);
        for (int id = 107; id <= 116; ++id)
            ids.insert(id);
        for (const QString &literal :
             sourceMatches(QStringLiteral("Translator::translate\\((\\d+)\\)"), {"*.cpp", "*.h"}))
            ids.insert(literal.toInt());
        for (int id : qAsConst(ids))
            QVERIFY2(!Translator::translate(id).isEmpty(), qPrintable(QStringLiteral("text %1 is missing").arg(id)));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("46 has no text in catalogue " + language));
        QCOMPARE(Translator::translate(46), QString());
        // A language without a catalogue keeps the one in use.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("xx has no catalogue"));
        QVERIFY(!Translator::setLanguage(QStringLiteral("xx")));
        QCOMPARE(Translator::language(), language);
        QCOMPARE(Translator::translate(53), news);
    }
};

QTEST_MAIN(tst_HostFramework)
#include "tst_hostframework.moc"
