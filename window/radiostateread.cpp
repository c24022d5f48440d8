#include "radiostateread.h"

#include "busproxies.h"
#include "busreply.h"
#include "preferences.h"
#include "radiochecks.h"
#include "radioedge.h"
#include "tunerlog.h"

namespace tuner {

namespace {

void warnUnanswered(const QStringList &failed)
{
    if (!failed.isEmpty())
        TUNER_WAR() << "the radio service did not answer" << failed.join(QLatin1String(", "))
                    << "; the stored state is kept for those.";
}

} // namespace

RadioStateRead::RadioStateRead(NiloRadioServiceInterface *radio, RadioEdge *edge, QObject *parent)
    : QObject(parent)
    , m_radio(radio)
    , m_edge(edge)
{}

void RadioStateRead::start(int blockingMs)
{
    delete m_batch;
    m_edge->setRadioStateKnown(false);
    m_deadline = QDeadlineTimer(blockingMs);
    m_late = false;
    readTuning();
}

bus::ReplyBatch *RadioStateRead::newBatch()
{
    m_batch = new bus::ReplyBatch(m_radio, this);
    return m_batch;
}

void RadioStateRead::useStoredState()
{
    m_late = true;
    Preferences::getInstance()->restoreStoredTuning();
    Preferences::getInstance()->restoreStoredAfTa();
}

// A group the service did not answer is not fed: what radio.conf holds stays,
// and no command is derived from a default. An error reply is an answer and
// flows on as 0 or empty.
void RadioStateRead::readTuning()
{
    namespace check = radiocheck;
    bus::ReplyBatch *batch = newBatch();
    const auto bandSwitch = batch->add(m_radio->bandSwitch(), "bandSwitch");
    const auto bandId = batch->add(m_radio->bandId(), "bandId");
    const auto fmList = batch->add(m_radio->fmList(), "fmList");
    const auto amList = batch->add(m_radio->amList(), "amList");
    const auto fmMax = batch->add(m_radio->fmMaxFreq(), "fmMaxFreq");
    const auto fmMin = batch->add(m_radio->fmMinFreq(), "fmMinFreq");
    const auto fmStep = batch->add(m_radio->fmStep(), "fmStep");
    const auto amMax = batch->add(m_radio->amMaxFreq(), "amMaxFreq");
    const auto amMin = batch->add(m_radio->amMinFreq(), "amMinFreq");
    const auto amStep = batch->add(m_radio->amStep(), "amStep");
    const auto bandCurFreq = batch->add(m_radio->bandCurFreq(), "bandCurFreq");
    const auto bandPos = batch->add(m_radio->bandPos(), "bandPos");
    const auto local = batch->add(m_radio->initLocal(), "initLocal");
    const auto regional = batch->add(m_radio->initRegional(), "initRegional");
    const auto aftaList = batch->add(m_radio->initAfTaList(), "initAfTaList");
    const auto afta = batch->add(m_radio->initAfTa(), "initAfTa");
    if (!batch->waitUntil(m_deadline))
        useStoredState();
    batch->whenFinished([=](const QStringList &failed) {
        warnUnanswered(failed);
        Preferences *p = Preferences::getInstance();
        const bool tuningRead = bandSwitch.answered() && bandId.answered() && fmList.answered() && amList.answered()
                                && fmMax.answered() && fmMin.answered() && fmStep.answered() && amMax.answered()
                                && amMin.answered() && amStep.answered() && bandCurFreq.answered() && bandPos.answered()
                                && local.answered() && regional.answered();
        if (tuningRead) {
            emit tuning(check::tuning(bandSwitch.value(), bandId.value(), fmList.value(), amList.value(), fmMax.value(),
                                      fmMin.value(), fmStep.value(), amMax.value(), amMin.value(), amStep.value(),
                                      bandCurFreq.value(), bandPos.value(), local.value(), regional.value()));
        } else if (!m_late) {
            p->restoreStoredTuning();
        }
        if (aftaList.answered() && afta.answered())
            emit aftaState(check::list(aftaList.value(), check::kMaxFmPresets, "initAfTaList"), afta.value());
        else if (!m_late)
            p->restoreStoredAfTa();
        // Read or not, the service had its chance: what the tuner holds now stands.
        m_edge->setRadioStateKnown(true);
        batch->deleteLater();
        readRds();
    });
}

void RadioStateRead::readRds()
{
    namespace check = radiocheck;
    bus::ReplyBatch *batch = newBatch();
    const auto psName1 = batch->add(m_radio->initPsName1(), "initPsName1");
    const auto psName2 = batch->add(m_radio->initPsName2(), "initPsName2");
    const auto piTp = batch->add(m_radio->piTpStatus(), "piTpStatus");
    const auto programName = batch->add(m_radio->rdsProgramName(), "rdsProgramName");
    const auto rdsState = batch->add(m_radio->RDSstate(), "RDSstate");
    batch->waitUntil(m_deadline);
    batch->whenFinished([=](const QStringList &failed) {
        warnUnanswered(failed);
        if (psName1.answered())
            emit PsName1(check::nameList(psName1.value(), check::kMaxPsName1Items, "initPsName1"));
        if (psName2.answered())
            emit PsName2(check::nameList(psName2.value(), check::kMaxPsName2Items, "initPsName2"));
        if (piTp.answered())
            emit tp_pi_status(piTp.value());
        if (programName.answered())
            emit ProgramName(check::name(programName.value(), "rdsProgramName"));
        if (rdsState.answered())
            emit statusChanged(check::rdsStatus(rdsState.value()));
        batch->deleteLater();
        emit fed();
    });
}

} // namespace tuner
