#include "radioedge.h"

#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "radiochecks.h"
#include "tunerlog.h"

#include <QDBusServiceWatcher>
#include <QElapsedTimer>

namespace tuner {

namespace {

constexpr int kIdle = 0;

} // namespace

RadioEdge::RadioEdge(NiloRadioServiceInterface *radio, QObject *parent)
    : QObject(parent)
    , m_watcher(new QDBusServiceWatcher(radio->service(), radio->connection(), QDBusServiceWatcher::WatchForOwnerChange,
                                        this))
{
    m_endOfTurn.setSingleShot(true);
    m_endOfTurn.setInterval(0);
    connect(&m_endOfTurn, &QTimer::timeout, this, &RadioEdge::deliverWaiting);
    connect(m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &RadioEdge::onOwnerChanged);

    connect(radio, SIGNAL(initDate(int,int,QString,QString,int,int,int,int,int,int,int,int,int,int,int,QString,QString,int,int)),
                          this,
                          SLOT(onInitDate(int,int,QString,QString,int,int,int,int,int,int,int,int,int,int,int,QString,QString,int,int)));
    connect(radio, SIGNAL(aftaState(QString,int)), this, SLOT(onAftaState(QString,int)));
    connect(radio, SIGNAL(PsName1(QString)), this, SLOT(onPsName1(QString)));
    connect(radio, SIGNAL(PsName2(QString)), this, SLOT(onPsName2(QString)));
    connect(radio, SIGNAL(stationChanged(int,int)), this, SLOT(onStationChanged(int,int)));
    connect(radio, SIGNAL(autoScanCompleted(QString)), this, SLOT(onAutoScanCompleted(QString)));
    connect(radio, SIGNAL(statusChanged(int)), this, SLOT(onStatusChanged(int)));
    connect(radio, SIGNAL(tp_pi_status(int)), this, SLOT(onTpPiStatus(int)));
    connect(radio, SIGNAL(seekState(int)), this, SLOT(onSeekState(int)));
    connect(radio, SIGNAL(work_status(int)), this, SLOT(onWorkStatus(int)));
    connect(radio, SIGNAL(ProgramName(QString)), this, SLOT(onProgramName(QString)));
    connect(radio, SIGNAL(ptyChanged(int,QString)), this, SLOT(onPtyChanged(int,QString)));
    connect(radio, SIGNAL(bandFMAMChang(int)), this, SLOT(onBandFMAMChang(int)));
}

RadioEdge::~RadioEdge() = default;

void RadioEdge::pass(Kind kind, std::function<void()> emitReport)
{
    if (!m_burst) {
        m_burst = true;
        m_endOfTurn.start();
        emitReport();
        return;
    }
    if (kind != Kind::Event) {
        for (int i = m_firstMergeable; i < m_waiting.size(); ++i) {
            if (m_waiting.at(i).kind == kind) {
                m_waiting[i].emitReport = std::move(emitReport);
                return;
            }
        }
    }
    if (kind == Kind::Event && m_waiting.size() >= kMaxWaitingEvents) {
        if (!m_droppedEvents)
            TUNER_WAR() << m_waiting.size() << "radio reports are waiting; the oldest are dropped.";
        m_droppedEvents = true;
        m_waiting.removeFirst();
        m_firstMergeable = qMax(0, m_firstMergeable - 1);
    }
    m_waiting.append({kind, std::move(emitReport)});
    if (kind == Kind::Event)
        m_firstMergeable = m_waiting.size();
}

void RadioEdge::deliverWaiting()
{
    QElapsedTimer slice;
    slice.start();
    int delivered = 0;
    while (delivered < m_waiting.size() && slice.elapsed() < kSliceMs) {
        // A report may start a nested event loop; it must find the queue intact.
        const std::function<void()> emitReport = m_waiting.at(delivered).emitReport;
        ++delivered;
        emitReport();
    }
    m_waiting.remove(0, qMin(delivered, m_waiting.size()));
    m_firstMergeable = qMax(0, m_firstMergeable - delivered);
    if (m_waiting.isEmpty()) {
        m_burst = false;
        m_droppedEvents = false;
        m_firstMergeable = 0;
    } else {
        m_endOfTurn.start();
    }
}

void RadioEdge::onInitDate(int band_switch, int band_id, const QString &fm_list, const QString &am_list,
                           int current_fm_freq, int current_am_freq, int fm_istuning, int am_istuning,
                           int current_band_num, int fm_freq_max, int fm_freq_min, int fm_step, int am_freq_max,
                           int am_freq_min, int am_step, const QString &band_current_freq, const QString &band_position,
                           int local, int regional)
{
    Q_UNUSED(current_fm_freq)
    Q_UNUSED(current_am_freq)
    Q_UNUSED(fm_istuning)
    Q_UNUSED(am_istuning)
    Q_UNUSED(current_band_num)
    const RadioTuning t
        = radiocheck::tuning(band_switch, band_id, fm_list, am_list, fm_freq_max, fm_freq_min, fm_step, am_freq_max,
                             am_freq_min, am_step, band_current_freq, band_position, local, regional);
    pass(Kind::Event, [=] { emit tuning(t); });
}

void RadioEdge::onAftaState(const QString &aftaList, int cur_afta)
{
    const QString list = radiocheck::list(aftaList, radiocheck::kMaxFmPresets, "aftaList");
    pass(Kind::Event, [=] { emit aftaState(list, cur_afta); });
}

void RadioEdge::onPsName1(const QString &names)
{
    const QString checked = radiocheck::nameList(names, radiocheck::kMaxPsName1Items, "PsName1");
    pass(Kind::PsName1, [=] { emit PsName1(checked); });
}

void RadioEdge::onPsName2(const QString &names)
{
    const QString checked = radiocheck::nameList(names, radiocheck::kMaxPsName2Items, "PsName2");
    pass(Kind::PsName2, [=] { emit PsName2(checked); });
}

void RadioEdge::onStationChanged(int freq, int band)
{
    // Any frequency passes: the screen shows a wrong one as such. A negative
    // band stands for the current one; another beyond the bands indexes nothing.
    const int checkedBand = band < 0 ? band : radiocheck::band(band, -1, "stationChanged band");
    pass(Kind::Station, [=] { emit stationChanged(freq, checkedBand); });
}

void RadioEdge::onAutoScanCompleted(const QString &stations)
{
    const QString checked = radiocheck::values(stations, radiocheck::kMaxFmPresets, "autoScanCompleted");
    pass(Kind::Event, [=] { emit autoScanCompleted(checked); });
}

void RadioEdge::onStatusChanged(int state)
{
    const int checked = radiocheck::rdsStatus(state);
    pass(Kind::RdsStatus, [=] { emit statusChanged(checked); });
}

void RadioEdge::onTpPiStatus(int state)
{
    pass(Kind::Event, [=] { emit tp_pi_status(state); });
}

void RadioEdge::onSeekState(int state)
{
    m_lastSeekState = state;
    pass(Kind::Event, [=] { emit seekState(state); });
}

void RadioEdge::onWorkStatus(int state)
{
    m_lastWorkStatus = state;
    pass(Kind::Event, [=] { emit work_status(state); });
}

void RadioEdge::onProgramName(const QString &name)
{
    const QString checked = radiocheck::name(name, "ProgramName");
    pass(Kind::ProgramName, [=] { emit ProgramName(checked); });
}

void RadioEdge::onPtyChanged(int pty, const QString &name)
{
    if (!radiocheck::ptyCode(pty))
        return;
    const QString checked = radiocheck::name(name, "ptyChanged name");
    pass(Kind::Pty, [=] { emit ptyChanged(pty, checked); });
}

void RadioEdge::onBandFMAMChang(int state)
{
    pass(Kind::Event, [=] { emit bandFMAMChang(state); });
}

// A service that goes away takes its searches with it; the screen must not
// wait for an idle report that will never come.
void RadioEdge::onOwnerChanged(const QString &service, const QString &oldOwner, const QString &newOwner)
{
    if (!oldOwner.isEmpty()) {
        if (m_lastWorkStatus != kIdle) {
            TUNER_WAR() << service << "left while busy (" << m_lastWorkStatus << "); the search ends.";
            onWorkStatus(kIdle);
        }
        if (m_lastSeekState == kPtySearching) {
            TUNER_WAR() << service << "left during a programme-type search; it ends without a station.";
            onSeekState(kPtyNotFound);
        }
    }
    if (!newOwner.isEmpty())
        pass(Kind::Event, [this] { emit serviceAppeared(); });
}

} // namespace tuner
