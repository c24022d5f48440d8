// The preferences model and its two INI files: what each setter writes and
// when, the defaults from the region table, the parsing of the radio
// service's start-up lists, bad input that must neither crash nor index past
// the preset tables, and a writer killed at any point. Then the band grids:
// the region table (its values are data, not tested row by row), the
// tuner-step switch that rewrites the service's radio configuration from it,
// and the dial that snaps and steps on a grid.

#include "childprocess.h"
#include "frequencydial.h"
#include "inifile.h"
#include "region.h"
#include "teststate.h"
#include "translator.h"
#include "tuneroptions.h"

#include <QtTest>

#include <sys/stat.h>

using namespace tuner;

using Action = std::function<void(Preferences *)>;
Q_DECLARE_METATYPE(Action)
// Another program's write into the file at `path`.
using Other = std::function<void(TestState &, const QString &path)>;
Q_DECLARE_METATYPE(Other)

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

class tst_Preferences : public QObject
{
    Q_OBJECT

private slots:
    // What each setter writes, at once; a bad index changes nothing and
    // writes nothing (the rows with no key).
    void settersWriteAtOnceOrNotAtAll_data()
    {
        QTest::addColumn<Action>("action");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        // Keys of "Tuner/" live in settings.ini, all others in radio.conf.
        // clang-format off
        QTest::newRow("ta") << Action([](Preferences *p) { p->setTa(true); }) << "Tune/ta" << "true";
        QTest::newRow("af") << Action([](Preferences *p) { p->setAf(false); }) << "Tune/Af" << "false";
        QTest::newRow("regional") << Action([](Preferences *p) { p->setRegional(false); }) << "Tune/Regional" << "false";
        QTest::newRow("last FM band") << Action([](Preferences *p) { p->setBand_FM(BAND_FM3); }) << "Tune/Band_FM" << "2";
        QTest::newRow("last AM band relative") << Action([](Preferences *p) { p->setBand_AM(Band(1)); }) << "Tune/Band_AM" << "1";
        QTest::newRow("current frequency") << Action([](Preferences *p) { p->setCurrPlayFreq(9850); }) << "Freq/FM0/CurrFreq" << "9850";
        QTest::newRow("play frequency of an AM band from FM") << Action([](Preferences *p) { p->setPlayFreq(BAND_AM2, 999); })
                                                              << "Freq/AM4/CurrFreq" << "999";
        QTest::newRow("preset id above 5 is none") << Action([](Preferences *p) { p->setCurrPlayFreqId(7); }) << "Freq/FM0/CurrFreqId" << "6";
        QTest::newRow("negative preset id kept") << Action([](Preferences *p) { p->setCurrPlayFreqId(-1); }) << "Freq/FM0/CurrFreqId" << "-1";
        QTest::newRow("clearFreqId prefix from the current band")
            << Action([](Preferences *p) { p->clearFreqId(BAND_AM1, 0); }) << "Freq/FM3/CurrFreqId" << "0";
        QTest::newRow("clearFreqId on AM") << Action([](Preferences *p) { p->setBand(BAND_AM2); p->clearFreqId(BAND_FM2, 9); })
                                           << "Freq/AM1/CurrFreqId" << "6";
        QTest::newRow("preset on AM") << Action([](Preferences *p) { p->setBand(BAND_AM1); p->setFavoriteFreq(5, 1602); })
                                      << "Freq/AM3/preset_5" << "1602";
        // Frequencies are snapped to the band's limits and step (EUR: FM 8750..10800 step 5, AM 531..1602 step 9).
        QTest::newRow("current frequency snapped down") << Action([](Preferences *p) { p->setCurrPlayFreq(9852); }) << "Freq/FM0/CurrFreq" << "9850";
        QTest::newRow("preset above the band") << Action([](Preferences *p) { p->setFavoriteFreq(0, 20000); }) << "Freq/FM0/preset_0" << "10800";
        QTest::newRow("AM play frequency snapped") << Action([](Preferences *p) { p->setPlayFreq(BAND_AM2, 1000); }) << "Freq/AM4/CurrFreq" << "999";
        QTest::newRow("AM play frequency below the band") << Action([](Preferences *p) { p->setPlayFreq(BAND_AM2, 100); }) << "Freq/AM4/CurrFreq" << "531";
        QTest::newRow("rds name, one key for all presets")
            << Action([](Preferences *p) { p->saveRdsName(BAND_AM1, 2, QStringLiteral("NDR 2")); })
            << "Tuner/rdsName" << "NDR 2";
        const QString none;
        QTest::newRow("preset -1") << Action([](Preferences *p) { p->setFavoriteFreq(-1, 9000); }) << none << none;
        QTest::newRow("preset 6") << Action([](Preferences *p) { p->setFavoriteFreq(6, 9000); }) << none << none;
        QTest::newRow("TA flag 99") << Action([](Preferences *p) { p->setFmTa(99, true); }) << none << none;
        QTest::newRow("AF flag -5") << Action([](Preferences *p) { p->setFmAf(-5, true); }) << none << none;
        QTest::newRow("band 7") << Action([](Preferences *p) { p->setBand(Band(7)); }) << none << none;
        QTest::newRow("band -1") << Action([](Preferences *p) { p->setBand(Band(-1)); }) << none << none;
        QTest::newRow("last FM band 12") << Action([](Preferences *p) { p->setBand_FM(Band(12)); }) << none << none;
        QTest::newRow("play frequency of band 5") << Action([](Preferences *p) { p->setPlayFreq(Band(5), 9000); }) << none << none;
        QTest::newRow("clear id of band 9") << Action([](Preferences *p) { p->clearFreqId(Band(9), 0); }) << none << none;
        QTest::newRow("rds name of band 5") << Action([](Preferences *p) { p->saveRdsName(Band(5), 0, QStringLiteral("X")); }) << none << none;
        QTest::newRow("rds name of preset 6") << Action([](Preferences *p) { p->saveRdsName(BAND_FM1, 6, QStringLiteral("X")); }) << none << none;
        QTest::newRow("save flag 6") << Action([](Preferences *p) { p->setSavePreset(6, true); }) << none << none;
        QTest::newRow("saveFreq null list") << Action([](Preferences *p) { p->saveFreq(nullptr, 3); }) << none << none;
        QTest::newRow("saveFreq negative count") << Action([](Preferences *p) { const int f[] = {9000}; p->saveFreq(f, -2); }) << none << none;
        QTest::newRow("preset index 6") << Action([](Preferences *p) { p->setPresetIndex(6); }) << none << none;
        // clang-format on
        // Names are stored so that QSettings reads them back as they were.
        const auto name
            = [](const QString &text) { return Action([text](Preferences *p) { p->saveRdsName(BAND_FM1, 0, text); }); };
        for (const QString &text : {QStringLiteral("a,b;c=d"), QStringLiteral("\"x\" \\y"), QStringLiteral(" NDR 2 "),
                                    QStringLiteral("@home"), QString::fromUtf8("Ö3 Bayern 1"), QString()})
            QTest::addRow("name [%s]", qPrintable(text)) << name(text) << "Tuner/rdsName" << text;
    }

    void settersWriteAtOnceOrNotAtAll()
    {
        QFETCH(Action, action);
        QFETCH(QString, key);
        QFETCH(QString, value);

        TestState state;
        const Preferences::flagBand before = prefs()->bandData(BAND_FM1);
        action(prefs());
        if (!key.isEmpty()) {
            // Read by a second settings object while the singleton lives on: the write was synced.
            const QVariant written
                = key.startsWith(QLatin1String("Tuner/")) ? state.settingsValue(key) : state.radioConfValue(key);
            QCOMPARE(written.toString(), value);
            return;
        }
        QCOMPARE(prefs()->band(), BAND_FM1);
        QCOMPARE(prefs()->presetIndex(), 0);
        const Preferences::flagBand &after = prefs()->bandData(BAND_FM1);
        for (int i = 0; i < kPresetCount; ++i) {
            QCOMPARE(after.presets[i], before.presets[i]);
            QCOMPARE(after.ta[i], before.ta[i]);
            QCOMPARE(after.af[i], before.af[i]);
            QCOMPARE(after.rdsName[i], before.rdsName[i]);
        }
        QVERIFY(!QFile::exists(state.radioConf()));
        QVERIFY(!QFile::exists(state.settingsIni()));
        // Getters past the tables give safe values.
        QCOMPARE(prefs()->favoritAt(6), 0);
        QCOMPARE(prefs()->favoritBandAt(Band(5), 0), 0);
        QCOMPARE(prefs()->fmTA(-1), false);
        QCOMPARE(prefs()->rdsName(BAND_FM1, 9), QString());
    }

    void defaultsComeFromTheDestinationsRegion_data()
    {
        QTest::addColumn<int>("destination");
        QTest::addColumn<int>("afTaTpSupport");
        QTest::addColumn<QVector<int>>("fm0"); // low, high, step, current, preset 0, preset 5
        QTest::addColumn<QVector<int>>("am3");
        QTest::addColumn<bool>("af");

        // clang-format off
        QTest::newRow("EUR") << 0 << 1 << QVector<int>{8750, 10800, 5, 8750, 8750, 10800} << QVector<int>{531, 1602, 9, 531, 531, 1602} << true;
        QTest::newRow("UC without AF/TA/TP") << 1 << 0 << QVector<int>{8750, 10790, 20, 8750, 8750, 10790} << QVector<int>{530, 1710, 10, 530, 530, 1710} << false;
        QTest::newRow("E") << 3 << 1 << QVector<int>{8750, 10800, 10, 8750, 8750, 10800} << QVector<int>{530, 1710, 10, 530, 530, 1710} << true;
        QTest::newRow("JPN keeps its odd edges") << 7 << 1 << QVector<int>{7600, 900, 10, 7600, 7800, 8970} << QVector<int>{822, 1629, 9, 522, 594, 1422} << true;
        QTest::newRow("unknown destination") << 2 << 1 << QVector<int>{0, 0, 0, 0, 0, 0} << QVector<int>{0, 0, 0, 0, 0, 0} << true;
        // clang-format on
    }

    void defaultsComeFromTheDestinationsRegion()
    {
        QFETCH(int, destination);
        QFETCH(int, afTaTpSupport);
        QFETCH(QVector<int>, fm0);
        QFETCH(QVector<int>, am3);
        QFETCH(bool, af);

        TestState state(QStringLiteral("Destination=%1 RdsAfTaTpSupport=%2").arg(destination).arg(afTaTpSupport));

        const auto summary = [](const Preferences::flagBand &b) {
            return QVector<int>{b.lowFreq, b.highFreq, b.step, b.currFreq, b.presets[0], b.presets[5]};
        };
        QCOMPARE(summary(prefs()->bandData(BAND_FM1)), fm0);
        QCOMPARE(summary(prefs()->bandData(BAND_AM1)), am3);
        QCOMPARE(prefs()->af(), af);
        QCOMPARE(prefs()->bandData(BAND_FM3).af[5], af);
        QCOMPARE(prefs()->isLocal(), false);
        QCOMPARE(prefs()->regional(), true);
        QCOMPARE(prefs()->band(), BAND_FM1);
        QCOMPARE(prefs()->band_AM(), BAND_AM1);
        QCOMPARE(prefs()->PTYSeachState(), 6);
        QCOMPARE(prefs()->playFreqId(), kNoPreset);
        // Nothing is written at start-up.
        QVERIFY(!QFile::exists(state.radioConf()));
    }

    // The radio service's start-up lists, band by band. Each band reads
    // "current frequency, preset id, preset index, id before auto-store,
    // step: presets 0..5"; "written" are radio.conf keys ("=" alone: absent).
    void initTakesTheServiceLists_data()
    {
        QTest::addColumn<QVector<int>>("ranges"); // FM max, min, step, AM max, min, step
        QTest::addColumn<QStringList>("lists");   // band_current_freq, band_position, fm_list, am_list
        QTest::addColumn<QStringList>("bands");
        QTest::addColumn<QStringList>("written");
        QTest::addColumn<QStringList>("warnings");
        const QVector<int> eur{10800, 8750, 5, 1602, 531, 9};
        // Preset ids count from 1 (0: none); non-positive presets and empty
        // parts are skipped, and the presets run on across bands.
        // clang-format off
        QTest::newRow("all bands") << eur
            << QStringList{"9000;9100;9200;999;1080", "1;0;6;;2;0", "8750;;9000;9100;9200;9300;9400;9500;0;-3;9600", "531;603"}
            << QStringList{"9000 0 0 0 5: 8750 9000 9100 9200 9300 9400", "9100 6 0 0 5: 9500 9600 ANY",
                           "9200 5 5 5 5: ANY", "999 1 1 1 9: 531 603 ANY", "1080 6 0 0 9: ANY"}
            << QStringList{"Freq/FM0/CurrFreqId=0", "Freq/FM1/CurrFreqId=6", "Freq/FM1/preset_1=9600", "Freq/FM1/preset_2=",
                           "Freq/AM4/CurrFreq=1080"}
            << QStringList();
        QTest::newRow("fewer band positions: only those bands") << QVector<int>{10790, 8770, 20, 1710, 530, 10}
            << QStringList{"9000;9100;9200;999;1080", "2;3", "8770;8790", "530"}
            << QStringList{"9000 1 1 1 20: 8770 8790 ANY", "9100 2 2 2 20: ANY", "8750 6 0 0 5: ANY", "531 6 0 0 9: ANY", "ANY"}
            << QStringList{"Freq/FM2/CurrFreq="} << QStringList();
        QTest::newRow("garbage") << eur << QStringList{"x", "junk;99", "98.5;9000", ""}
            << QStringList{"0 6 0 0 5: 9000 ANY", "ANY 98 0 0 5: ANY", "ANY", "ANY", "ANY"} << QStringList()
            << QStringList{"band_current_freq x is not a number", "band_position junk is not a number",
                           "fm_list 98\\.5 is not a number", "has no current frequency"};
        // clang-format on
    }

    void initTakesTheServiceLists()
    {
        QFETCH(QVector<int>, ranges);
        QFETCH(QStringList, lists);
        QFETCH(QStringList, bands);
        QFETCH(QStringList, written);
        QFETCH(QStringList, warnings);
        TestState state;
        for (const QString &warning : warnings)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
        prefs()->init(ranges[0], ranges[1], ranges[2], ranges[3], ranges[4], ranges[5], lists[0], lists[1], lists[2],
                      lists[3]);
        for (int b = 0; b < kBandCount; ++b) {
            const Preferences::flagBand &d = prefs()->bandData(Band(b));
            QString shown = QStringLiteral("%1 %2 %3 %4 %5:")
                                .arg(d.currFreq)
                                .arg(d.currFreqId)
                                .arg(d.presetIndex)
                                .arg(d.btmFreqIdBefore)
                                .arg(d.step);
            for (const int preset : d.presets)
                shown += QLatin1Char(' ') + QString::number(preset);
            // "ANY" ends what a row says of a band.
            const QString &expected = bands.at(b);
            const int any = expected.indexOf(QLatin1String("ANY"));
            QCOMPARE(any < 0 ? shown : shown.left(any), any < 0 ? expected : expected.left(any));
        }
        QCOMPARE(prefs()->presetIndex(), prefs()->bandData(prefs()->band()).presetIndex);
        for (const QString &entry : written) {
            const QString key = entry.section(QLatin1Char('='), 0, 0);
            QCOMPARE(state.radioConfValue(key).toString(), entry.section(QLatin1Char('='), 1));
        }
    }

    // Lists laid over consecutive presets run on into the family's next
    // band. "model": "<band> af|ta|names|presets" and the band's six values;
    // "written": radio.conf keys after the action ("key=": absent), or
    // "nothing" for no file at all.
    void listsRunOnAcrossBands_data()
    {
        QTest::addColumn<Action>("setup");
        QTest::addColumn<Action>("action");
        QTest::addColumn<QStringList>("model");
        QTest::addColumn<QStringList>("written");
        const auto fromBtm = [](Band band, int index) {
            return Action([=](Preferences *p) {
                p->setBand(band);
                p->setPresetIndex(index);
                p->btmStart();
            });
        };
        const auto store = [](const QVector<int> &freqs) {
            return Action([=](Preferences *p) { p->saveFreq(freqs.constData(), freqs.size()); });
        };
        // clang-format off
        QTest::newRow("AF/TA codes, one per FM preset; an empty one sets neither")
            << Action() << Action([](Preferences *p) { p->aftaState(QStringLiteral("1;2;3;0;7;;1;1;1;1;1;1;2")); })
            << QStringList{"FM1 af 1,0,1,0,0,0", "FM1 ta 0,1,1,0,0,0", "FM2 af 1,1,1,1,1,1", "FM3 af 0,1,1,1,1,1", "FM3 ta 1,0,0,0,0,0"}
            << QStringList{"Freq/FM0/AF_0=true", "Freq/FM0/TA_1=true", "Freq/FM2/TA_0=true", "Freq/FM2/TA_1="};
        QTest::newRow("AF/TA reset from the auto-store band, not the current one, keys crossed")
            << Action([=](Preferences *p) { fromBtm(BAND_FM2, 4)(p); p->setAf(true); p->setTa(false); p->setBand(BAND_FM1); })
            << Action([](Preferences *p) { p->resetAfTa(4); })
            << QStringList{"FM2 af 1,1,1,1,1,1", "FM2 ta 0,0,0,0,0,0", "FM3 af 1,1,1,1,1,1"}
            << QStringList{"Freq/FM1/TA_4=true", "Freq/FM1/AF_4=false", "Freq/FM2/TA_1=true", "Freq/FM2/TA_2=", "Freq/FM1/TA_3="};
        QTest::newRow("AM presets have no flags to reset") << fromBtm(BAND_AM1, 0) << Action([](Preferences *p) { p->resetAfTa(6); })
            << QStringList() << QStringList{"nothing"};
        QTest::newRow("store from FM3 preset 4: the rest is dropped") << fromBtm(BAND_FM3, 4) << store({9000, 9100, 9200})
            << QStringList{"FM3 presets 8750,8750,8750,8750,9000,9100", "FM1 presets 8750,9750,9800,9850,10750,10800"}
            << QStringList{"Freq/FM2/preset_4=9000", "Freq/FM2/preset_5=9100"};
        QTest::newRow("store across an FM band") << fromBtm(BAND_FM1, 5) << store({9000, 9100})
            << QStringList{"FM1 presets 8750,9750,9800,9850,10750,9000", "FM2 presets 9100,8750,8750,8750,8750,8750"}
            << QStringList{"Freq/FM0/preset_5=9000", "Freq/FM1/preset_0=9100"};
        QTest::newRow("store across an AM band") << fromBtm(BAND_AM1, 5) << store({999, 1008})
            << QStringList{"AM1 presets 531,909,999,1089,1512,999", "AM2 presets 1008,531,531,531,531,531"}
            << QStringList{"Freq/AM3/preset_5=999", "Freq/AM4/preset_0=1008"};
        QTest::newRow("names from two lists, up to FM3's last preset")
            << Action() << Action([](Preferences *p) {
                   p->setPsName1(QStringLiteral("A;B;;D;E;F;G;H;I"));
                   p->setPsName2(QStringLiteral("J;K;L;M;N;O;P;Q;R;S;T"));
               })
            << QStringList{"FM1 names A,B,,D,E,F", "FM2 names G,H,I,J,K,L", "FM3 names M,N,O,P,Q,R", "AM1 names ,,,,,"}
            << QStringList{"nothing"};
        // clang-format on
    }

    void listsRunOnAcrossBands()
    {
        QFETCH(Action, setup);
        QFETCH(Action, action);
        QFETCH(QStringList, model);
        QFETCH(QStringList, written);
        TestState state;
        if (setup) {
            setup(prefs());
            prefs()->flush();
            QFile::remove(state.radioConf());
        }
        action(prefs());
        static const QStringList bands{"FM1", "FM2", "FM3", "AM1", "AM2"};
        for (const QString &entry : model) {
            const Preferences::flagBand &d = prefs()->bandData(Band(bands.indexOf(entry.section(' ', 0, 0))));
            const QString what = entry.section(' ', 1, 1);
            QStringList shown;
            for (int i = 0; i < kPresetCount; ++i) {
                shown << (what == QLatin1String("af")      ? QString::number(d.af[i])
                          : what == QLatin1String("ta")    ? QString::number(d.ta[i])
                          : what == QLatin1String("names") ? d.rdsName[i]
                                                           : QString::number(d.presets[i]));
            }
            QCOMPARE(entry.section(' ', 0, 1) + ' ' + shown.join(','), entry);
        }
        for (const QString &entry : written) {
            if (entry == QLatin1String("nothing"))
                QVERIFY(!QFile::exists(state.radioConf()));
            else
                QCOMPARE(state.radioConfValue(entry.section('=', 0, 0)).toString(), entry.section('=', 1));
        }
    }

    // The 18 presets of the family from its first band, even on AM (12 presets).
    void favoritesCountsEighteenEvenForAm()
    {
        TestState state;
        int out[50];
        const auto favorites = [&](int size) {
            std::fill(std::begin(out), std::end(out), -7);
            return prefs()->favorites(out, size);
        };
        QCOMPARE(favorites(50), 18);
        QCOMPARE((QList<int>{out[0], out[6], out[18]}), (QList<int>{8750, 8750, -7}));
        prefs()->setBand(BAND_AM2);
        QCOMPARE(favorites(50), 18);
        QCOMPARE((QList<int>{out[0], out[5], out[11], out[12]}), (QList<int>{531, 1602, 531, -7}));
        QCOMPARE(favorites(4), 4);
        QCOMPARE(prefs()->favorites(nullptr, 4), 0);
    }

    // The band name list has two entries: bands past it read it again.
    void bandNameForEveryBand()
    {
        TestState state;
        for (const auto &[band, textId] : {std::pair(0, 39), std::pair(1, 49), std::pair(2, 39), std::pair(4, 49)}) {
            prefs()->setBand(Band(band));
            if (band >= 2)
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression("has no entry in the band name list"));
            QCOMPARE(prefs()->bandName(), Translator::translate(textId));
        }
    }

    void oddFilesAreLeftAlone_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QStringList>("warnings");
        QTest::newRow("FIFO: never opened") << "fifo" << QStringList{"is not a regular file"};
        QTest::newRow("folder in its place") << "folder" << QStringList{"is not a regular file"};
        QTest::newRow("2 MB") << "huge" << QStringList{"is too large"};
        QTest::newRow("a file where its folder belongs")
            << "blocked" << QStringList{"cannot be created", "keeps its changes in memory"};
    }

    void oddFilesAreLeftAlone()
    {
        QFETCH(QString, kind);
        QFETCH(QStringList, warnings);
        constexpr int kHuge = 2 * 1024 * 1024;
        TestState state;
        const QString path = state.radioConf();
        QDir().mkpath(QFileInfo(path).absolutePath());
        if (kind == QLatin1String("blocked")) { // "system" is a file: the configuration's folder cannot be made
            QDir(state.root() + QLatin1String("/system")).removeRecursively();
            QFile blocker(state.root() + QLatin1String("/system"));
            QVERIFY(blocker.open(QIODevice::WriteOnly));
            Preferences::resetInstance();
        } else if (kind == QLatin1String("fifo")) {
            QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        } else if (kind == QLatin1String("folder")) {
            QVERIFY(QDir().mkpath(path));
        } else {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(QByteArray(kHuge, 'x'));
        }
        for (const QString &warning : warnings)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
        prefs()->setFavoriteFreq(3, 9900);
        prefs()->flush();
        QCOMPARE(prefs()->favoritAt(3), 9900); // the model takes it either way
        const QFileInfo info(path);
        QCOMPARE(info.exists(), kind != QLatin1String("blocked"));
        QCOMPARE(info.isDir(), kind == QLatin1String("folder"));
        QCOMPARE(info.isFile() ? info.size() : 0, kind == QLatin1String("huge") ? kHuge : 0);
        QVERIFY(!QFile::exists(path + QLatin1String(".corrupt")));
    }

    // Files written by other tools (a Windows editor, an older tuner) are
    // the driver's data wherever QSettings reads them: every key reads as
    // QSettings reads it, and a store replaces what reading takes. Only a file
    // of which nothing reads as a key is moved aside. A rewrite of ours that a
    // power loss cut short is removed.
    void filesAreReadAsQSettingsReadsThem_data()
    {
        QTest::addColumn<bool>("radioConf"); // else settings.ini
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("movedAside");
        const QByteArray presets = "[Freq]\nFM0\\preset_0=9550\nFM0\\preset_1=9990\n[Tune]\nCurrBand=0\n";
        // clang-format off
        QTest::newRow("UTF-8 BOM") << true << "\xEF\xBB\xBF" + presets << false;
        QTest::newRow("CR-only line ends") << true << QByteArray(presets).replace('\n', '\r') << false;
        QTest::newRow("CRLF line ends") << true << QByteArray(presets).replace("\n", "\r\n") << false;
        QTest::newRow("key three times, group twice, comments") << true
            << QByteArray("[Freq]\nFM0\\preset_0=8800\nFM0\\preset_0=9000 ; old\n# factory\n[Tune]\nLocal=true\n"
                          "[Freq]\nFM0\\preset_0=9550\njunk without a key\n") << false;
        QTest::newRow("a group written as a section") << true
            << QByteArray("[Freq\\FM0]\npreset_0=9550\n[Freq]\nFM0\\preset_0=8800\nFM0/preset_1=9000\n") << false;
        QByteArray many = presets;
        for (int i = 0; i < 50000; ++i)
            many += "[G" + QByteArray::number(i) + "]\nk=" + QByteArray::number(i) + '\n';
        QTest::newRow("50 000 groups") << true << many << false;
        QTest::newRow("settings.ini, BOM and CRLF") << false << QByteArray("\xEF\xBB\xBF[Tuner]\r\nrdsName=NDR 2\r\n") << false;
        QTest::newRow("settings.ini in UTF-16: moved aside") << false
            << QByteArray("\xFF\xFE[\0T\0u\0n\0e\0r\0]\0\r\0\n\0r\0d\0s\0N\0a\0m\0e\0=\0X\0\r\0\n\0", 40) << true;
        QTest::newRow("binary garbage: moved aside") << true << QByteArray("[Freq\n\x01\x02\xff=\n[[[\n=5\n") << true;
        QTest::newRow("lines without keys: moved aside") << true << QByteArray("[Tune]\nthis is no key\n") << true;
        // clang-format on
    }

    void filesAreReadAsQSettingsReadsThem()
    {
        QFETCH(bool, radioConf);
        QFETCH(QByteArray, content);
        QFETCH(bool, movedAside);
        TestState state;
        const QString path = radioConf ? state.radioConf() : state.settingsIni();
        QDir().mkpath(QFileInfo(path).absolutePath());
        for (const auto &[name, bytes] : {std::pair(path, content), std::pair(path + ".tmp", QByteArray("[Freq"))}) {
            QFile file(name);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(bytes);
        }
        const auto readByQSettings = [&path] {
            QSettings settings(path, QSettings::IniFormat);
            QVariantMap values;
            for (const QString &key : settings.allKeys())
                values.insert(key, settings.value(key));
            return values;
        };
        QVariantMap expected = movedAside ? QVariantMap() : readByQSettings();

        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("left by an interrupted write; removed"));
        if (movedAside)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("not a valid INI file; moved aside"));
        IniFile file(path);
        QVERIFY(!QFile::exists(path + ".tmp"));
        QFile aside(path + ".corrupt");
        QCOMPARE(aside.open(QIODevice::ReadOnly) ? aside.readAll() : QByteArray(), movedAside ? content : QByteArray());
        for (auto it = expected.cbegin(); it != expected.cend(); ++it)
            QCOMPARE(file.plainText(it.key()), it.value().toString());

        const QString key = radioConf ? QStringLiteral("Freq/FM0/preset_0") : QStringLiteral("Tuner/rdsName");
        file.setValue(key, QStringLiteral("10000"));
        QVERIFY(file.flush());
        expected.insert(key, QStringLiteral("10000"));
        QCOMPARE(readByQSettings(), expected);
    }

    void writesOnlyChangesAndABurstAtOnce()
    {
        TestState state;
        prefs()->init(10800, 8750, 5, 1602, 531, 9, "8800;9450;10020;999;1089", "1;0;0;0;0", "9000", "999");
        prefs()->setTa(true);
        QCOMPARE(prefs()->rewrites(), 0); // nothing on disk yet: the burst is still open
        QTRY_COMPARE(prefs()->rewrites(), 1);
        QCOMPARE(state.radioConfValue("Tune/ta").toBool(), true);

        // The same values again, as after a restart of the service: nothing to write.
        prefs()->init(10800, 8750, 5, 1602, 531, 9, "8800;9450;10020;999;1089", "1;0;0;0;0", "9000", "999");
        prefs()->setTa(true);
        prefs()->setCurrPlayFreq(8800);
        prefs()->flush();
        QCOMPARE(prefs()->rewrites(), 1);
    }

    // The files are shared with other programs: what another writer stored
    // while the tuner ran is still there after ten stores of the tuner's, a
    // key both wrote holds the later value, and a deleted file comes back
    // at the next store, even of a value the tuner already held.
    void anotherWritersKeysSurvive_data()
    {
        QTest::addColumn<bool>("radioConf"); // else settings.ini
        QTest::addColumn<Other>("other");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("warning");
        const auto set = [](const char *key, const char *value) {
            return Other(
                [=](TestState &, const QString &path) { QSettings(path, QSettings::IniFormat).setValue(key, value); });
        };
        const Other remove = [](TestState &, const QString &path) { QVERIFY(QFile::remove(path)); };
        // clang-format off
        QTest::newRow("settings.ini: a key added") << false << set("Audio/volume", "7") << "Audio/volume" << "7" << "";
        QTest::newRow("radio.conf: a key added") << true << set("Media/last", "usb") << "Media/last" << "usb" << "";
        QTest::newRow("radio.conf: a tuner key the tuner did not store again")
            << true << set("Freq/FM1/preset_2", "9990") << "Freq/FM1/preset_2" << "9990" << "";
        QTest::newRow("radio.conf: the tuner's later store wins") << true << set("Freq/FM0/CurrFreq", "9000") << "Freq/FM0/CurrFreq" << "8795" << "";
        QTest::newRow("radio.conf: the tuner-step switch") << true << Other([](TestState &state, const QString &) {
            qputenv("NILO_DIR", (state.root() + QLatin1String("/system")).toUtf8());
            setTunerStep(1);
        }) << "Tune/TunerStep" << "1" << "";
        QTest::newRow("radio.conf deleted") << true << remove << "Tune/ta" << "true" << "removed while the tuner ran; written anew";
        QTest::newRow("settings.ini deleted") << false << remove << "Tuner/rdsName" << "N9" << "removed while the tuner ran; written anew";
        QTest::newRow("radio.conf overwritten with garbage") << true << Other([](TestState &, const QString &path) {
            QFile file(path);
            // clang-format on
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write("\x01\x02 not an INI file\n");
        }) << "Tune/ta"
                                                             << "true"
                                                             << "not a valid INI file; moved aside";
    }

    void anotherWritersKeysSurvive()
    {
        QFETCH(bool, radioConf);
        QFETCH(Other, other);
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(QString, warning);
        TestState state;
        const QString path = radioConf ? state.radioConf() : state.settingsIni();
        const auto store = [](int i) {
            prefs()->setTa(true);
            prefs()->setCurrPlayFreq(8750 + 5 * i);
            prefs()->saveRdsName(BAND_FM1, 0, QStringLiteral("N%1").arg(i));
            prefs()->flush();
        };
        store(0);
        other(state, path);
        if (!warning.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
        store(0); // values the tuner holds already
        QCOMPARE(QFile::exists(path), true);
        for (int i = 1; i < 10; ++i)
            store(i);
        QCOMPARE(QSettings(path, QSettings::IniFormat).value(key).toString(), value);
        QCOMPARE(state.radioConfValue("Freq/FM0/CurrFreq").toInt(), 8795);
        QCOMPARE(state.settingsValue("Tuner/rdsName").toString(), QStringLiteral("N9"));
    }

    // A region by id, or by name (a negative id) in either case or exactly.
    void lookup_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("caseSensitive");
        QTest::addColumn<int>("row");
        QTest::newRow("EUR") << 0 << "" << false << 0;
        QTest::newRow("E17") << 18 << "" << false << 2;
        QTest::newRow("JPN") << 7 << "" << false << 8;
        QTest::newRow("2 is no region") << 2 << "" << false << -1;
        QTest::newRow("jpn, case-insensitive") << -1 << "jpn" << false << 8;
        QTest::newRow("jpn, case-sensitive") << -1 << "jpn" << true << -1;
        QTest::newRow("JPN, case-sensitive") << -1 << "JPN" << true << 8;
        QTest::newRow("E is not EUR") << -1 << "E" << true << 3;
        QTest::newRow("EU matches nothing") << -1 << "EU" << false << -1;
        QTest::newRow("empty") << -1 << "" << false << -1;
    }

    void lookup()
    {
        QFETCH(int, id);
        QFETCH(QString, name);
        QFETCH(bool, caseSensitive);
        QFETCH(int, row);
        const tagTunerRegion_T *region
            = id >= 0 ? findRegionById(uint(id))
                      : findRegionByName(name, caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
        QCOMPARE(region, row < 0 ? nullptr : &tunerRegionTable[row]);
        QCOMPARE(findRegionById(0xffffffffu), nullptr);
    }

    void tunerStepRewritesTheServiceConfiguration_data()
    {
        QTest::addColumn<QString>("region");
        QTest::addColumn<int>("step");
        QTest::addColumn<QVariant>("fm0Current");
        QTest::addColumn<QVariant>("fm0Preset1");
        QTest::addColumn<QVariant>("am3Preset5");

        // clang-format off
        QTest::newRow("EUR variant 1 is all zero") << "EUR" << 1 << QVariant(0) << QVariant(0) << QVariant(0);
        QTest::newRow("EUR variant 0") << "EUR" << 0 << QVariant(8750) << QVariant(9750) << QVariant(1602);
        QTest::newRow("e variant 1, name in any case") << "e" << 1 << QVariant(8750) << QVariant(9590) << QVariant(1710);
        QTest::newRow("no region: only the step") << "" << 1 << QVariant() << QVariant() << QVariant();
        QTest::newRow("unknown region: only the step") << "MARS" << 0 << QVariant() << QVariant() << QVariant();
        // clang-format on
    }

    void tunerStepRewritesTheServiceConfiguration()
    {
        QFETCH(QString, region);
        QFETCH(int, step);
        QFETCH(QVariant, fm0Current);
        QFETCH(QVariant, fm0Preset1);
        QFETCH(QVariant, am3Preset5);

        TestState state;
        const QString path = state.root() + QLatin1String("/nilo/etc/radio.conf");
        QDir().mkpath(state.root() + QLatin1String("/nilo/etc"));
        {
            QSettings seed(path, QSettings::IniFormat);
            seed.setValue(QStringLiteral("Tune/Region"), region);
            seed.setValue(QStringLiteral("Freq/FM0/preset_0"), 12345);
        }
        if (region == QLatin1String("MARS"))
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("MARS is not a known region"));

        setTunerStep(step);

        QSettings conf(path, QSettings::IniFormat);
        QCOMPARE(conf.value("Tune/TunerStep").toInt(), step);
        const auto asInt = [](const QVariant &v) { return v.isValid() ? QVariant(v.toInt()) : v; };
        QCOMPARE(asInt(conf.value("Freq/FM0/CurrFreq")), fm0Current);
        QCOMPARE(asInt(conf.value("Freq/FM0/preset_1")), fm0Preset1);
        QCOMPARE(asInt(conf.value("Freq/AM3/preset_5")), am3Preset5);
        // Limits and steps are not part of the rewrite.
        QVERIFY(!conf.contains("Freq/FM0/step"));
        // The preferences' own file is a different one.
        QVERIFY(!QFile::exists(state.radioConf()));
        // A variant other than 0 and 1 changes nothing.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("2 is not a tuner step variant"));
        setTunerStep(2);
        QCOMPARE(QSettings(path, QSettings::IniFormat).value("Tune/TunerStep").toInt(), step);
    }

    void snapping_data()
    {
        QTest::addColumn<int>("freq");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("stored");   // detect: clamped, then snapped
        QTest::addColumn<int>("reported"); // normalize: 0 kept, outside -1
        QTest::newRow("rounds down, not to the nearest") << 8759 << 5 << 8755 << 8755;
        QTest::newRow("on the grid") << 9850 << 5 << 9850 << 9850;
        QTest::newRow("below the band") << 8700 << 5 << 8750 << -1;
        QTest::newRow("above the band") << 10810 << 5 << 10800 << -1;
        QTest::newRow("zero") << 0 << 5 << 8750 << 0;
        QTest::newRow("step 0 does not divide") << 9000 << 0 << 9000 << 9000;
        QTest::newRow("negative step does not divide") << 9000 << -5 << 9000 << 9000;
    }

    void snapping()
    {
        QFETCH(int, freq);
        QFETCH(int, step);
        QFETCH(int, stored);
        QFETCH(int, reported);
        QCOMPARE(FrequencyDial::detect(freq, 8750, 10800, step), stored);
        QCOMPARE(FrequencyDial::normalize(freq, 8750, 10800, step), reported);
        QCOMPARE(FrequencyDial::detect(1000, 531, 1602, 9), 999); // AM grid counted from its own bottom
    }

    void steppingWrapsOnlyPastAnEdge_data()
    {
        QTest::addColumn<bool>("up");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::newRow("up, one step below the top") << true << 10795 << 10800;
        QTest::newRow("up, at the top") << true << 10800 << 8750;
        QTest::newRow("down, one step above the bottom") << false << 8755 << 8750;
        QTest::newRow("down, at the bottom") << false << 8750 << 10800;
    }

    void steppingWrapsOnlyPastAnEdge()
    {
        QFETCH(bool, up);
        QFETCH(int, from);
        QFETCH(int, to);
        QCOMPARE(up ? FrequencyDial::stepUp(from, 8750, 10800, 5) : FrequencyDial::stepDown(from, 8750, 10800, 5), to);
        FrequencyDial dial;
        dial.setRange(8750, 10800);
        dial.setStep(5, true);
        QVERIFY(dial.setValue(from));
        QCOMPARE(dial.next(up), to);
        QVERIFY(!dial.setValue(10805));
        QCOMPARE(dial.value(), from);
    }

    // radio.conf survives a writer killed at any point: every kill leaves a
    // file that parses, with every group and key.
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
    tst_Preferences test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_preferences.moc"
