// radio.conf survives a writer killed at any point: every kill leaves a file
// that parses, with every group and key.

#include "childprocess.h"
#include "teststate.h"

#include <QtTest>

using namespace tuner;

namespace {

constexpr char kWriterFlag[] = "--writer";
constexpr int kKills = 200;

// Stores presets, bands and switches as fast as it can, one synced rewrite each,
// and says "w" after each.
int runWriter()
{
    Preferences *p = Preferences::getInstance();
    p->init(10800, 8750, 5, 1602, 531, 9, "8800;9450;10020;999;1089", "1;2;3;1;2",
            "8800;8900;9000;9100;9200;9300;9400;9500;9600;9700;9800;9900;10000;10100;10200;10300;10400;10500",
            "531;540;549;558;567;576;585;594;603;612;621;630");
    p->aftaState("1;2;3;1;2;3;1;2;3;1;2;3;1;2;3;1;2;3");
    p->setLocal(true);
    p->setTa(true);
    p->setAf(true);
    p->setRegional(true);
    p->setBand_FM(BAND_FM1);
    p->setBand_AM(BAND_AM1);
    p->flush();
    std::puts("ready");
    std::fflush(stdout);
    for (unsigned i = 0;; ++i) {
        p->setBand(Band(i % 3));
        p->setFavoriteFreq(int(i % 6), 8750 + 5 * int(i % 400));
        p->setFmAf(int(i % 6), i % 2);
        p->setCurrPlayFreq(8750 + 10 * int(i % 200));
        p->flush();
        std::puts("w");
        std::fflush(stdout);
    }
}

} // namespace

class tst_PowerLoss : public QObject
{
    Q_OBJECT

private slots:
    void killedWriterNeverLeavesATornFile()
    {
        TestState state;
        QStringList keys; // every key of the first whole file: 7 of Tune, 76 of Freq
        for (int kill = 0; kill < kKills; ++kill) {
            ChildProcess writer;
            QVERIFY(writer.start(QCoreApplication::applicationFilePath(), {QLatin1String(kWriterFlag)},
                                 ChildProcess::Output::Captured));
            // Killed after a random number of its writes, somewhere inside the next one.
            const int writes = QRandomGenerator::global()->bounded(1, 12);
            int seen = -1; // "ready" first
            while (seen < writes && writer.waitForReadyRead(5000))
                seen += writer.readAll().count('\n');
            writer.kill();
            writer.waitForFinished();

            QSettings conf(state.radioConf(), QSettings::IniFormat);
            QCOMPARE(conf.status(), QSettings::NoError);
            if (keys.isEmpty()) {
                keys = conf.allKeys();
                QCOMPARE(keys.size(), 83);
            }
            QVERIFY2(conf.allKeys() == keys, qPrintable(QStringLiteral("kill %1 left other keys").arg(kill)));
        }
        // What the last kill left half-written is cleared at the next start.
        Preferences::getInstance();
        QVERIFY(!QFile::exists(state.radioConf() + QLatin1String(".tmp")));
    }
};

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], kWriterFlag) == 0) {
        QCoreApplication app(argc, argv); // TUNER_ROOT comes from the test that started it
        return runWriter();
    }
    QCoreApplication app(argc, argv);
    tst_PowerLoss test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_powerloss.moc"
