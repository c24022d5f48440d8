// What the plug-in adds to the generated proxies: their addresses, getters
// that read the service's value or fall back to a default within a bounded
// time, and backends whose signals follow the same XML. The generated code
// itself is qdbusxml2cpp's and is not tested again here.

#include "busaddress.h"
#include "busproxies.h"
#include "busreply.h"
#include "fakeservices.h"
#include "nilo_mcuservice_adaptor.h"
#include "nilo_radioservice_adaptor.h"
#include "nilo_sourceservice_adaptor.h"

#include <QtTest>

namespace {

struct Proxies
{
    std::unique_ptr<NiloRadioServiceInterface> radio{tuner::bus::createRadioProxy(nullptr)};
    std::unique_ptr<NiloMcuServiceInterface> mcu{tuner::bus::createMcuProxy(nullptr)};
    std::unique_ptr<NiloSourceServiceInterface> source{tuner::bus::createSourceProxy(nullptr)};
};

using Getter = std::function<QVariant(Proxies &)>;

template<typename T>
QVariant read(QDBusPendingReply<T> reply)
{
    return QVariant::fromValue(tuner::bus::replyValue(reply, "test"));
}

// The signals a class declares itself, sorted.
QStringList ownSignals(const QMetaObject &meta)
{
    QStringList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal)
            found << QString::fromLatin1(meta.method(i).methodSignature());
    }
    found.sort();
    return found;
}

} // namespace

Q_DECLARE_METATYPE(Getter)

class tst_BusProtocol : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        // The bus tells this connection of the last test's owner leaving and
        // of the new one coming; a signal that arrived while the connection
        // still knew the old owner would be dropped.
        QDBusServiceWatcher watcher(QLatin1String(tuner::bus::kMcuService), QDBusConnection::sessionBus(),
                                    QDBusServiceWatcher::WatchForOwnerChange);
        QSignalSpy owners(&watcher, &QDBusServiceWatcher::serviceOwnerChanged);
        m_fakes = std::make_unique<FakeServices>();
        QVERIFY(m_fakes->start());
        const QString owner = m_fakes->connection().baseService();
        QTRY_VERIFY(std::any_of(owners.cbegin(), owners.cend(),
                                [&](const QList<QVariant> &change) { return change.at(2) == owner; }));
        m_proxies = std::make_unique<Proxies>();
    }

    void cleanup()
    {
        m_proxies.reset();
        m_fakes.reset();
    }

    // The generated adaptors declare the XML's signals and relay the
    // backends' (the simulator's and the fakes') by signature: one that
    // drifts would compile and never arrive.
    void backendSignalsFollowTheXml()
    {
        QCOMPARE(ownSignals(NiloRadioServiceBackend::staticMetaObject),
                 ownSignals(NiloRadioServiceAdaptor::staticMetaObject));
        QCOMPARE(ownSignals(NiloMcuServiceBackend::staticMetaObject),
                 ownSignals(NiloMcuServiceAdaptor::staticMetaObject));
        QCOMPARE(ownSignals(NiloSourceServiceBackend::staticMetaObject),
                 ownSignals(NiloSourceServiceAdaptor::staticMetaObject));
        QVERIFY(ownSignals(NiloRadioServiceAdaptor::staticMetaObject).contains("stationChanged(int,int)"));
    }

    // Hung and malformed services last: their unanswered calls outlive the test.

    void gettersReadTheServiceOrADefault_data()
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
        const QVariant answers[] = {QVariant(3), QVariant(QStringLiteral("8750 Ü")), QVariant(true), QVariant(9)};
        const QVariant defaults[] = {QVariant(0), QVariant(QString()), QVariant(false), QVariant(0)};
        for (const char *failure : {"healthy", "absent", "hung", "malformed"}) {
            for (int i = 0; i < getters.size(); ++i) {
                QTest::addRow("%s service, %s getter", failure, getters[i].first)
                    << getters[i].second << QString::fromLatin1(failure)
                    << (qstrcmp(failure, "healthy") ? defaults[i] : answers[i]);
            }
        }
    }

    void gettersReadTheServiceOrADefault()
    {
        QFETCH(Getter, getter);
        QFETCH(QString, failure);
        QFETCH(QVariant, expected);

        // The value a healthy service would give must not leak through.
        m_fakes->radio()->setAnswers({{"bandId", 3}, {"fmList", QStringLiteral("8750 Ü")}, {"isAfEnable", true}});
        m_fakes->source()->setAnswer(QStringLiteral("currentWindow"), 9);
        if (failure == QLatin1String("absent"))
            m_fakes->stop();
        for (ServiceBackend *b :
             {static_cast<ServiceBackend *>(m_fakes->radio()), static_cast<ServiceBackend *>(m_fakes->source())}) {
            b->setHung(failure == QLatin1String("hung"));
            b->setMalformed(failure == QLatin1String("malformed"));
        }

        if (failure != QLatin1String("healthy"))
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QStringLiteral("^\\[WAR\\] .* -- test .* call failed")));
        QCOMPARE(getter(*m_proxies), expected);
    }

    // A batch remembers how the service's owner answered: one that let a
    // batch run out is not waited for again and its calls give up sooner;
    // once it answers in time it is waited for as any other.
    void batchesRememberASlowOwner()
    {
        using tuner::bus::ReplyBatch;
        ReplyBatch::forgetUnresponsiveServices();
        NiloRadioServiceInterface *radio = m_proxies->radio.get();
        const int ownTimeout = radio->timeout();
        const auto read = [&](bool *inTime) {
            ReplyBatch batch(radio);
            const int timeout = radio->timeout();
            const auto band = batch.add(radio->bandId(), "bandId");
            *inTime = batch.waitUntil(QDeadlineTimer(ReplyBatch::kBlockingWaitMs));
            bool done = false;
            batch.whenFinished([&](const QStringList &) { done = true; });
            if (!QTest::qWaitFor([&] { return done; }, 5000))
                return -1;
            return band.answered() ? timeout : -timeout;
        };
        m_fakes->radio()->setHung(true);
        bool inTime = true;
        QCOMPARE(read(&inTime), -ReplyBatch::kDeadlineMs);
        QVERIFY(!inTime);
        QCOMPARE(read(&inTime), -tuner::bus::kCallTimeoutMs); // not waited for, and gives up sooner
        QVERIFY(!inTime);
        m_fakes->radio()->setHung(false);
        QCOMPARE(read(&inTime), tuner::bus::kCallTimeoutMs); // answered: the owner recovered
        QCOMPARE(read(&inTime), ReplyBatch::kDeadlineMs);
        QVERIFY(inTime);
        QCOMPARE(radio->timeout(), ownTimeout);
        // Forgotten, a hung owner is waited for again.
        m_fakes->radio()->setHung(true);
        QCOMPARE(read(&inTime), -ReplyBatch::kDeadlineMs);
        ReplyBatch::forgetUnresponsiveServices();
        QCOMPARE(read(&inTime), -ReplyBatch::kDeadlineMs);
    }

private:
    std::unique_ptr<FakeServices> m_fakes;
    std::unique_ptr<Proxies> m_proxies;
};

QTEST_GUILESS_MAIN(tst_BusProtocol)
#include "tst_busprotocol.moc"
