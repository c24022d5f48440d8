// The three service protocols as the plug-in sees them: commands leave with
// their names and arguments, getters read the service's values or fall back
// to defaults, and every signal reaches the proxy with its arguments.

#include "busaddress.h"
#include "busproxies.h"
#include "busreply.h"
#include "fakeservices.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

struct Proxies
{
    std::unique_ptr<NiloRadioServiceInterface> radio{tuner::bus::createRadioProxy(nullptr)};
    std::unique_ptr<NiloMcuServiceInterface> mcu{tuner::bus::createMcuProxy(nullptr)};
    std::unique_ptr<NiloSourceServiceInterface> source{tuner::bus::createSourceProxy(nullptr)};
};

enum Service { Radio, Mcu, Source };

using Command = std::function<void(Proxies &)>;
using Getter = std::function<QVariant(Proxies &)>;
using Emitter = std::function<void(FakeServices &)>;

template<typename T>
QVariant read(QDBusPendingReply<T> reply)
{
    return QVariant::fromValue(tuner::bus::replyValue(reply, "test"));
}

ServiceBackend *backendOf(FakeServices &fakes, Service service)
{
    switch (service) {
    case Radio:
        return fakes.radio();
    case Mcu:
        return fakes.mcu();
    case Source:
        return fakes.source();
    }
    return nullptr;
}

} // namespace

Q_DECLARE_METATYPE(Command)
Q_DECLARE_METATYPE(Getter)
Q_DECLARE_METATYPE(Emitter)
Q_DECLARE_METATYPE(Service)

class tst_BusProtocol : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void proxiesAddressTheServices();
    void commandsArriveWithNameAndArguments_data();
    void commandsArriveWithNameAndArguments();
    void commandsKeepTheirOrder();
    void gettersReadTheServiceValues_data();
    void gettersReadTheServiceValues();
    void failedGettersReadAsDefaults_data();
    void failedGettersReadAsDefaults();
    void hungServiceBoundsStartupGetters();
    void signalsReachTheProxy_data();
    void signalsReachTheProxy();
    void serviceRestartIsFollowed();

private:
    std::unique_ptr<FakeServices> m_fakes;
    std::unique_ptr<Proxies> m_proxies;
};

void tst_BusProtocol::init()
{
    m_fakes = std::make_unique<FakeServices>();
    QVERIFY(m_fakes->start());
    m_proxies = std::make_unique<Proxies>();
}

void tst_BusProtocol::cleanup()
{
    m_proxies.reset();
    m_fakes.reset();
}

void tst_BusProtocol::proxiesAddressTheServices()
{
    QCOMPARE(m_proxies->radio->service(), QStringLiteral("com.nilo.mcu"));
    QCOMPARE(m_proxies->radio->path(), QStringLiteral("/RadioService"));
    QCOMPARE(QString::fromLatin1(NiloRadioServiceInterface::staticInterfaceName()), QStringLiteral("nilo.RadioService"));
    QCOMPARE(m_proxies->mcu->service(), QStringLiteral("com.nilo.mcu"));
    QCOMPARE(m_proxies->mcu->path(), QStringLiteral("/McuService"));
    QCOMPARE(QString::fromLatin1(NiloMcuServiceInterface::staticInterfaceName()), QStringLiteral("nilo.McuService"));
    QCOMPARE(m_proxies->source->service(), QStringLiteral("com.nilo.system"));
    QCOMPARE(m_proxies->source->path(), QStringLiteral("/SourceService"));
    QCOMPARE(QString::fromLatin1(NiloSourceServiceInterface::staticInterfaceName()), QStringLiteral("nilo.SourceService"));
    QCOMPARE(m_proxies->radio->timeout(), tuner::bus::kCallTimeoutMs);
    QCOMPARE(m_proxies->mcu->timeout(), tuner::bus::kCallTimeoutMs);
    QCOMPARE(m_proxies->source->timeout(), tuner::bus::kCallTimeoutMs);
}

void tst_BusProtocol::commandsArriveWithNameAndArguments_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<Service>("service");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QVariantList>("args");

    QTest::newRow("radio tune") << Command([](Proxies &p) { p.radio->tune(9850); }) << Radio << "tune" << QVariantList{9850};
    QTest::newRow("radio setband") << Command([](Proxies &p) { p.radio->setband(3); }) << Radio << "setband" << QVariantList{3};
    QTest::newRow("radio config") << Command([](Proxies &p) { p.radio->config(true, 1, 1); }) << Radio << "config" << QVariantList{true, 1, 1};
    QTest::newRow("radio rdsCtrl") << Command([](Proxies &p) { p.radio->rdsCtrl(true, false, true); }) << Radio << "rdsCtrl" << QVariantList{true, false, true};
    QTest::newRow("radio setPreset") << Command([](Proxies &p) { p.radio->setPreset(5); }) << Radio << "setPreset" << QVariantList{5};
    QTest::newRow("radio savePreset") << Command([](Proxies &p) { p.radio->savePreset(2); }) << Radio << "savePreset" << QVariantList{2};
    QTest::newRow("radio keyLongPress") << Command([](Proxies &p) { p.radio->keyLongPress(1); }) << Radio << "keyLongPress" << QVariantList{1};
    QTest::newRow("radio taAlarmCancel") << Command([](Proxies &p) { p.radio->taAlarmCancel(1); }) << Radio << "taAlarmCancel" << QVariantList{1};
    QTest::newRow("radio ptySearch") << Command([](Proxies &p) { p.radio->ptySearch(10); }) << Radio << "ptySearch" << QVariantList{10};
    QTest::newRow("radio setAf") << Command([](Proxies &p) { p.radio->setAf(true); }) << Radio << "setAf" << QVariantList{true};
    QTest::newRow("radio setTa") << Command([](Proxies &p) { p.radio->setTa(false); }) << Radio << "setTa" << QVariantList{false};
    QTest::newRow("radio setFMRange") << Command([](Proxies &p) { p.radio->setFMRange(8750, 10800, 5); }) << Radio << "setFMRange" << QVariantList{8750, 10800, 5};
    QTest::newRow("radio seekForward") << Command([](Proxies &p) { p.radio->seekForward(); }) << Radio << "seekForward" << QVariantList{};
    QTest::newRow("radio terminate") << Command([](Proxies &p) { p.radio->terminate(); }) << Radio << "terminate" << QVariantList{};
    QTest::newRow("radio autoScan") << Command([](Proxies &p) { p.radio->autoScan(); }) << Radio << "autoScan" << QVariantList{};
    QTest::newRow("mcu triggerBeep") << Command([](Proxies &p) { p.mcu->triggerBeep(1); }) << Mcu << "triggerBeep" << QVariantList{1};
    QTest::newRow("mcu updateAudioStatus") << Command([](Proxies &p) { p.mcu->updateAudioStatus(8); }) << Mcu << "updateAudioStatus" << QVariantList{8};
    QTest::newRow("mcu updateAudioChannel") << Command([](Proxies &p) { p.mcu->updateAudioChannel(1); }) << Mcu << "updateAudioChannel" << QVariantList{1};
    QTest::newRow("mcu syncDatetime six arguments") << Command([](Proxies &p) { p.mcu->syncDatetime(2026, 11, 22, 18, 30, 5); })
                                                    << Mcu << "syncDatetime" << QVariantList{2026, 11, 22, 18, 30, 5};
    QTest::newRow("mcu updateAppVersion string") << Command([](Proxies &p) { p.mcu->updateAppVersion(QStringLiteral("1.2")); })
                                                 << Mcu << "updateAppVersion" << QVariantList{QStringLiteral("1.2")};
    QTest::newRow("source onChangedTask") << Command([](Proxies &p) { p.source->onChangedTask(3, 6); }) << Source << "onChangedTask" << QVariantList{3, 6};
    QTest::newRow("source setAAConnected") << Command([](Proxies &p) { p.source->setAAConnected(true); }) << Source << "setAAConnected" << QVariantList{true};
}

void tst_BusProtocol::commandsArriveWithNameAndArguments()
{
    QFETCH(Command, command);
    QFETCH(Service, service);
    QFETCH(QString, member);
    QFETCH(QVariantList, args);

    command(*m_proxies);
    ServiceBackend *backend = backendOf(*m_fakes, service);
    QTRY_COMPARE(backend->calls().size(), 1);
    QCOMPARE(backend->calls().first().member, member);
    QCOMPARE(backend->calls().first().args, args);
}

void tst_BusProtocol::commandsKeepTheirOrder()
{
    m_proxies->radio->terminate();
    m_proxies->radio->tune(8750);
    m_proxies->radio->seekBackward();
    m_proxies->radio->setPreset(0);
    QTRY_COMPARE(m_fakes->radio()->callNames(),
                 (QStringList{"terminate", "tune", "seekBackward", "setPreset"}));
}

void tst_BusProtocol::gettersReadTheServiceValues_data()
{
    QTest::addColumn<Getter>("getter");
    QTest::addColumn<Service>("service");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QVariant>("value");

    const auto radioInt = [](const char *name, int value, Getter g) {
        QTest::newRow(name) << g << Radio << QString::fromLatin1(name) << QVariant(value);
    };
    const auto radioText = [](const char *name, const QString &value, Getter g) {
        QTest::newRow(name) << g << Radio << QString::fromLatin1(name) << QVariant(value);
    };
    radioInt("bandSwitch", 1, [](Proxies &p) { return read(p.radio->bandSwitch()); });
    radioInt("bandId", 4, [](Proxies &p) { return read(p.radio->bandId()); });
    radioText("fmList", "8750;9000;;9100", [](Proxies &p) { return read(p.radio->fmList()); });
    radioText("amList", "531;999", [](Proxies &p) { return read(p.radio->amList()); });
    radioInt("fmMaxFreq", 10800, [](Proxies &p) { return read(p.radio->fmMaxFreq()); });
    radioInt("fmMinFreq", 8750, [](Proxies &p) { return read(p.radio->fmMinFreq()); });
    radioInt("fmStep", 5, [](Proxies &p) { return read(p.radio->fmStep()); });
    radioInt("amMaxFreq", 1602, [](Proxies &p) { return read(p.radio->amMaxFreq()); });
    radioInt("amMinFreq", 531, [](Proxies &p) { return read(p.radio->amMinFreq()); });
    radioInt("amStep", 9, [](Proxies &p) { return read(p.radio->amStep()); });
    radioText("bandCurFreq", "8750;9000;9100;531;531", [](Proxies &p) { return read(p.radio->bandCurFreq()); });
    radioText("bandPos", "1;0;6;2;0", [](Proxies &p) { return read(p.radio->bandPos()); });
    radioInt("initLocal", 1, [](Proxies &p) { return read(p.radio->initLocal()); });
    radioInt("initRegional", 1, [](Proxies &p) { return read(p.radio->initRegional()); });
    radioText("initAfTaList", "1;2;3;0", [](Proxies &p) { return read(p.radio->initAfTaList()); });
    radioInt("initAfTa", 3, [](Proxies &p) { return read(p.radio->initAfTa()); });
    radioText("initPsName1", "BBC R1;;NDR 2", [](Proxies &p) { return read(p.radio->initPsName1()); });
    radioText("initPsName2", "SWR3", [](Proxies &p) { return read(p.radio->initPsName2()); });
    radioInt("piTpStatus", 3, [](Proxies &p) { return read(p.radio->piTpStatus()); });
    radioText("rdsProgramName", "Radio Ü", [](Proxies &p) { return read(p.radio->rdsProgramName()); });
    radioInt("RDSstate", 3, [](Proxies &p) { return read(p.radio->RDSstate()); });
    radioInt("freqBandId", 2, [](Proxies &p) { return read(p.radio->freqBandId()); });
    radioInt("ptyType", 10, [](Proxies &p) { return read(p.radio->ptyType()); });
    radioText("rdsName", "JAZZ FM", [](Proxies &p) { return read(p.radio->rdsName()); });
    radioInt("workStateType", 2, [](Proxies &p) { return read(p.radio->workStateType()); });
    radioInt("frequency", 10170, [](Proxies &p) { return read(p.radio->frequency()); });
    radioInt("negative value", -1, [](Proxies &p) { return read(p.radio->seekType()); });
    QTest::newRow("isTaEnable") << Getter([](Proxies &p) { return read(p.radio->isTaEnable()); }) << Radio << "isTaEnable" << QVariant(true);
    QTest::newRow("mcu audioVolume") << Getter([](Proxies &p) { return read(p.mcu->audioVolume()); }) << Mcu << "audioVolume" << QVariant(17);
    QTest::newRow("mcu setupInfo") << Getter([](Proxies &p) { return read(p.mcu->setupInfo()); }) << Mcu << "setupInfo" << QVariant(QStringLiteral("dest=0"));
    QTest::newRow("source currentWindow") << Getter([](Proxies &p) { return read(p.source->currentWindow()); }) << Source << "currentWindow" << QVariant(9);
}

void tst_BusProtocol::gettersReadTheServiceValues()
{
    QFETCH(Getter, getter);
    QFETCH(Service, service);
    QFETCH(QString, member);
    QFETCH(QVariant, value);

    QString name = member == QLatin1String("negative value") ? QStringLiteral("seekType") : member;
    backendOf(*m_fakes, service)->setAnswer(name, value);
    QCOMPARE(getter(*m_proxies), value);
}

void tst_BusProtocol::failedGettersReadAsDefaults_data()
{
    QTest::addColumn<Getter>("getter");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QVariant>("expected");

    const QList<QPair<const char *, Getter>> getters = {
        {"int", [](Proxies &p) { return read(p.radio->bandId()); }},
        {"string", [](Proxies &p) { return read(p.radio->fmList()); }},
        {"bool", [](Proxies &p) { return read(p.radio->isAfEnable()); }},
        {"source int", [](Proxies &p) { return read(p.source->currentWindow()); }},
    };
    const QVariant defaults[] = {QVariant(0), QVariant(QString()), QVariant(false), QVariant(0)};
    for (const char *failure : {"absent", "hung", "malformed"}) {
        for (int i = 0; i < getters.size(); ++i) {
            QTest::addRow("%s service, %s getter", failure, getters[i].first)
                << getters[i].second << QString::fromLatin1(failure) << defaults[i];
        }
    }
}

void tst_BusProtocol::failedGettersReadAsDefaults()
{
    QFETCH(Getter, getter);
    QFETCH(QString, failure);
    QFETCH(QVariant, expected);

    // The value a healthy service would give must not leak through.
    m_fakes->radio()->setAnswer(QStringLiteral("bandId"), 3);
    m_fakes->radio()->setAnswer(QStringLiteral("fmList"), QStringLiteral("8750"));
    m_fakes->radio()->setAnswer(QStringLiteral("isAfEnable"), true);
    m_fakes->source()->setAnswer(QStringLiteral("currentWindow"), 9);
    if (failure == QLatin1String("absent"))
        m_fakes->stop();
    for (ServiceBackend *b : {static_cast<ServiceBackend *>(m_fakes->radio()), static_cast<ServiceBackend *>(m_fakes->source())}) {
        b->setHung(failure == QLatin1String("hung"));
        b->setMalformed(failure == QLatin1String("malformed"));
    }

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^\\[WAR\\] .* -- test .* call failed")));
    QCOMPARE(getter(*m_proxies), expected);
}

// The main window and the tuner screen read about two dozen getters one after
// the other at start-up; against a hung service each gives up after the
// bounded timeout.
void tst_BusProtocol::hungServiceBoundsStartupGetters()
{
    constexpr int kStartupGetters = 24;
    static_assert(kStartupGetters * tuner::bus::kCallTimeoutMs < 5000,
                  "start-up against a hung service must stay below five seconds");
    m_fakes->radio()->setHung(true);
    m_fakes->radio()->setAnswer(QStringLiteral("fmMaxFreq"), 10800);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("call failed")));

    QElapsedTimer clock;
    clock.start();
    const QDBusPendingReply<int> reply = m_proxies->radio->fmMaxFreq();
    QCOMPARE(tuner::bus::replyValue(reply, "test"), 0);
    QVERIFY(reply.isError());
    qInfo("one getter against a hung service gave up after %lld ms", clock.elapsed());
    QCOMPARE(m_fakes->radio()->callNames(), QStringList{"fmMaxFreq"});
}

void tst_BusProtocol::signalsReachTheProxy_data()
{
    QTest::addColumn<Service>("service");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<Emitter>("emitter");
    QTest::addColumn<QVariantList>("expected");

    const QVariantList initArgs{1, 3, QStringLiteral("8750;9000"), QStringLiteral("531"), 8750, 531, 0, 0, 2,
                                10800, 8750, 5, 1602, 531, 9, QStringLiteral("8750;9000;9100;531;531"),
                                QStringLiteral("1;0;0;2;0"), 1, 0};
    QTest::newRow("initDate, 19 arguments")
        << Radio
        << QByteArray("initDate(int,int,QString,QString,int,int,int,int,int,int,int,int,int,int,int,QString,QString,int,int)")
        << Emitter([initArgs](FakeServices &f) {
               const auto &a = initArgs;
               emit f.radio()->initDate(a[0].toInt(), a[1].toInt(), a[2].toString(), a[3].toString(), a[4].toInt(),
                                        a[5].toInt(), a[6].toInt(), a[7].toInt(), a[8].toInt(), a[9].toInt(),
                                        a[10].toInt(), a[11].toInt(), a[12].toInt(), a[13].toInt(), a[14].toInt(),
                                        a[15].toString(), a[16].toString(), a[17].toInt(), a[18].toInt());
           })
        << initArgs;
    QTest::newRow("ProgramName") << Radio << QByteArray("ProgramName(QString)")
                                 << Emitter([](FakeServices &f) { emit f.radio()->ProgramName(QStringLiteral("NDR 2")); })
                                 << QVariantList{QStringLiteral("NDR 2")};
    QTest::newRow("PsName1") << Radio << QByteArray("PsName1(QString)")
                             << Emitter([](FakeServices &f) { emit f.radio()->PsName1(QStringLiteral("A;B")); })
                             << QVariantList{QStringLiteral("A;B")};
    QTest::newRow("PsName2") << Radio << QByteArray("PsName2(QString)")
                             << Emitter([](FakeServices &f) { emit f.radio()->PsName2(QStringLiteral("C")); })
                             << QVariantList{QStringLiteral("C")};
    QTest::newRow("afEnableChanged") << Radio << QByteArray("afEnableChanged(bool)")
                                     << Emitter([](FakeServices &f) { emit f.radio()->afEnableChanged(true); })
                                     << QVariantList{true};
    QTest::newRow("aftaState") << Radio << QByteArray("aftaState(QString,int)")
                               << Emitter([](FakeServices &f) { emit f.radio()->aftaState(QStringLiteral("1;2;3"), 2); })
                               << QVariantList{QStringLiteral("1;2;3"), 2};
    QTest::newRow("antennaSignalChanged") << Radio << QByteArray("antennaSignalChanged(int)")
                                          << Emitter([](FakeServices &f) { emit f.radio()->antennaSignalChanged(4); })
                                          << QVariantList{4};
    QTest::newRow("audioChanged") << Radio << QByteArray("audioChanged(bool)")
                                  << Emitter([](FakeServices &f) { emit f.radio()->audioChanged(false); })
                                  << QVariantList{false};
    QTest::newRow("autoScanCompleted") << Radio << QByteArray("autoScanCompleted(QString)")
                                       << Emitter([](FakeServices &f) { emit f.radio()->autoScanCompleted(QStringLiteral("8750;9000;")); })
                                       << QVariantList{QStringLiteral("8750;9000;")};
    QTest::newRow("bandChanged") << Radio << QByteArray("bandChanged(int,int,int,int)")
                                 << Emitter([](FakeServices &f) { emit f.radio()->bandChanged(3, 531, 1602, 9); })
                                 << QVariantList{3, 531, 1602, 9};
    QTest::newRow("bandFMAMChang") << Radio << QByteArray("bandFMAMChang(int)")
                                   << Emitter([](FakeServices &f) { emit f.radio()->bandFMAMChang(1); })
                                   << QVariantList{1};
    QTest::newRow("localChanged") << Radio << QByteArray("localChanged(bool)")
                                  << Emitter([](FakeServices &f) { emit f.radio()->localChanged(true); })
                                  << QVariantList{true};
    QTest::newRow("ptyChanged") << Radio << QByteArray("ptyChanged(int,QString)")
                                << Emitter([](FakeServices &f) { emit f.radio()->ptyChanged(10, QStringLiteral("Pop Music")); })
                                << QVariantList{10, QStringLiteral("Pop Music")};
    QTest::newRow("rdsChanged") << Radio << QByteArray("rdsChanged(int,int)")
                                << Emitter([](FakeServices &f) { emit f.radio()->rdsChanged(1, 2); })
                                << QVariantList{1, 2};
    QTest::newRow("seekState") << Radio << QByteArray("seekState(int)")
                               << Emitter([](FakeServices &f) { emit f.radio()->seekState(6); })
                               << QVariantList{6};
    QTest::newRow("stationChanged") << Radio << QByteArray("stationChanged(int,int)")
                                    << Emitter([](FakeServices &f) { emit f.radio()->stationChanged(10170, 1); })
                                    << QVariantList{10170, 1};
    QTest::newRow("statusChanged") << Radio << QByteArray("statusChanged(int)")
                                   << Emitter([](FakeServices &f) { emit f.radio()->statusChanged(3); })
                                   << QVariantList{3};
    QTest::newRow("taEnableChanged") << Radio << QByteArray("taEnableChanged(bool)")
                                     << Emitter([](FakeServices &f) { emit f.radio()->taEnableChanged(true); })
                                     << QVariantList{true};
    QTest::newRow("tp_pi_status") << Radio << QByteArray("tp_pi_status(int)")
                                  << Emitter([](FakeServices &f) { emit f.radio()->tp_pi_status(5); })
                                  << QVariantList{5};
    QTest::newRow("work_status") << Radio << QByteArray("work_status(int)")
                                 << Emitter([](FakeServices &f) { emit f.radio()->work_status(2); })
                                 << QVariantList{2};
    QTest::newRow("mcu keyEvent") << Mcu << QByteArray("keyEvent(int,int)")
                                  << Emitter([](FakeServices &f) { emit f.mcu()->keyEvent(44, 1); })
                                  << QVariantList{44, 1};
    QTest::newRow("mcu wheelStudyKeys") << Mcu << QByteArray("wheelStudyKeys(QString)")
                                        << Emitter([](FakeServices &f) { emit f.mcu()->wheelStudyKeys(QStringLiteral("1,2")); })
                                        << QVariantList{QStringLiteral("1,2")};
    QTest::newRow("source windowAndSourceChanged") << Source << QByteArray("windowAndSourceChanged(int,int)")
                                                   << Emitter([](FakeServices &f) { emit f.source()->windowAndSourceChanged(9, 6); })
                                                   << QVariantList{9, 6};
}

void tst_BusProtocol::signalsReachTheProxy()
{
    QFETCH(Service, service);
    QFETCH(QByteArray, signature);
    QFETCH(Emitter, emitter);
    QFETCH(QVariantList, expected);

    QObject *proxy = service == Radio ? static_cast<QObject *>(m_proxies->radio.get())
                   : service == Mcu   ? static_cast<QObject *>(m_proxies->mcu.get())
                                      : static_cast<QObject *>(m_proxies->source.get());
    QSignalSpy spy(proxy, QByteArray("2" + signature).constData());
    QVERIFY(spy.isValid());
    // A round trip after connecting: the bus has the match rule before the signal leaves.
    tuner::bus::replyValue(m_proxies->radio->band(), "barrier");

    m_fakes->inServiceThread([&] { emitter(*m_fakes); });
    QVERIFY(spy.wait(2000));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first(), expected);
}

// A service that goes away and comes back is reached again by the same proxy.
void tst_BusProtocol::serviceRestartIsFollowed()
{
    m_fakes->radio()->setAnswer(QStringLiteral("bandId"), 2);
    QCOMPARE(tuner::bus::replyValue(m_proxies->radio->bandId(), "test"), 2);
    m_fakes->stop();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("call failed")));
    QCOMPARE(tuner::bus::replyValue(m_proxies->radio->bandId(), "test"), 0);
    QVERIFY(m_fakes->start());
    QCOMPARE(tuner::bus::replyValue(m_proxies->radio->bandId(), "test"), 2);

    QSignalSpy spy(m_proxies->radio.get(), SIGNAL(stationChanged(int,int)));
    tuner::bus::replyValue(m_proxies->radio->band(), "barrier");
    m_fakes->inServiceThread([&] { emit m_fakes->radio()->stationChanged(9000, 0); });
    QVERIFY(spy.wait(2000));
}

QTEST_GUILESS_MAIN(tst_BusProtocol)
#include "tst_busprotocol.moc"
