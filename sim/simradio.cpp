#include "simradio.h"

#include "region.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

namespace sim {

namespace {

constexpr int kSeekMsPerStep = 6; // a seek sweeps the band at this pace
constexpr int kSeekMinMs = 300;
constexpr int kRdsDelayMs = 400; // RDS decodes a moment after tuning
constexpr int kScanMs = 2500;
constexpr int kPtySearchMs = 1800;
constexpr int kLocalStrength = 50;

QString joinInts(const int *values, int count)
{
    QStringList parts;
    for (int i = 0; i < count; ++i)
        parts.append(QString::number(values[i]));
    return parts.join(QLatin1Char(';'));
}

} // namespace

SimRadio::SimRadio(int destination, const StationList &stations, const QString &stateFile, QObject *parent)
    : NiloRadioServiceBackend(parent)
    , m_stations(stations)
    , m_stateFile(stateFile)
{
    const tuner::tagTunerRegion_T *region = tuner::findRegionById(uint(destination));
    if (!region) {
        qWarning().noquote() << "[WAR] sim --" << destination << "is not a known destination, using EUR.";
        region = tuner::findRegionById(0);
    }
    const tuner::tagTunerRegionVariant_T &v = region->variant[0];
    m_fmLow = v.fmLow;
    m_fmHigh = v.fmHigh;
    m_fmStep = v.fmStep;
    m_amLow = v.amLow;
    m_amHigh = v.amHigh;
    m_amStep = v.amStep;
    for (int b = 0; b < 5; ++b) {
        m_curFreq[b] = v.currFreq[b];
        for (int i = 0; i < tuner::kPresetCount; ++i)
            m_presets[b][i] = v.presets[b][i];
    }
    std::fill(std::begin(m_presetAf), std::end(m_presetAf), true);
    m_stations.fitToBand(m_stations.fm, m_fmLow, m_fmHigh, m_fmStep);
    m_stations.fitToBand(m_stations.am, m_amLow, m_amHigh, m_amStep);
    qInfo().noquote() << "sim: region" << region->name << "FM" << m_fmLow << "-" << m_fmHigh << "/" << m_fmStep << "AM"
                      << m_amLow << "-" << m_amHigh << "/" << m_amStep << "," << m_stations.fm.size() << "FM and"
                      << m_stations.am.size() << "AM stations";
    loadState();

    for (QTimer *timer : {&m_seekTimer, &m_scanTimer, &m_ptyTimer, &m_rdsTimer})
        timer->setSingleShot(true);
    connect(&m_seekTimer, &QTimer::timeout, this, &SimRadio::finishSeek);
    connect(&m_scanTimer, &QTimer::timeout, this, &SimRadio::finishScan);
    connect(&m_ptyTimer, &QTimer::timeout, this, &SimRadio::finishPtySearch);
    connect(&m_rdsTimer, &QTimer::timeout, this, &SimRadio::reportRds);
}

const Station *SimRadio::stationAt(int band, int freq) const
{
    for (const Station &s : stationsOf(band)) {
        if (s.freq == freq)
            return &s;
    }
    return nullptr;
}

QString SimRadio::currentPs() const
{
    const Station *s = currentStation();
    return s && isFm(m_band) ? s->ps : QString();
}

// --- getters of lists ------------------------------------------------------------

QString SimRadio::fmList()
{
    record("fmList", {});
    return joinInts(&m_presets[0][0], tuner::kFmBandCount * tuner::kPresetCount);
}

QString SimRadio::amList()
{
    record("amList", {});
    return joinInts(&m_presets[tuner::kFmBandCount][0], tuner::kAmBandCount * tuner::kPresetCount);
}

QString SimRadio::bandCurFreq()
{
    record("bandCurFreq", {});
    return joinInts(m_curFreq, 5);
}

QString SimRadio::bandPos()
{
    record("bandPos", {});
    return joinInts(m_presetPos, tuner::kBandCount);
}

QString SimRadio::initAfTaList()
{
    record("initAfTaList", {});
    QStringList codes;
    for (int i = 0; i < tuner::kFmBandCount * tuner::kPresetCount; ++i)
        codes.append(QString::number((m_presetAf[i] ? 1 : 0) + (m_presetTa[i] ? 2 : 0)));
    return codes.join(QLatin1Char(';'));
}

QString SimRadio::psNamesOf(const int *presets, int count) const
{
    QStringList names;
    for (int i = 0; i < count; ++i) {
        const Station *s = stationAt(0, presets[i]);
        names.append(s ? s->ps : QString());
    }
    return names.join(QLatin1Char(';'));
}

QString SimRadio::initPsName1()
{
    record("initPsName1", {});
    return psNamesOf(&m_presets[0][0], 9);
}

QString SimRadio::initPsName2()
{
    record("initPsName2", {});
    return psNamesOf(&m_presets[1][3], 9);
}

// --- tuning -------------------------------------------------------------------------

void SimRadio::selectBand(int band)
{
    if (band < 0 || band > 4) {
        qWarning().noquote() << "[WAR] sim --" << band << "is not a band.";
        return;
    }
    stopSearches();
    const bool familyChange = isFm(band) != isFm(m_band);
    m_band = band;
    saveState();
    announceStation();
    if (familyChange)
        QTimer::singleShot(scaled(300), this, [this] { emit bandFMAMChang(1); });
}

void SimRadio::tuneTo(int freq)
{
    stopSearches();
    m_curFreq[m_band] = qBound(low(m_band), freq, high(m_band));
    m_presetPos[m_band] = 0;
    for (int i = 0; i < tuner::kPresetCount; ++i) {
        if (m_presets[m_band][i] == m_curFreq[m_band]) {
            m_presetPos[m_band] = i + 1;
            break;
        }
    }
    saveState();
    announceStation();
}

void SimRadio::announceStation()
{
    m_rdsState = 0;
    emit stationChanged(m_curFreq[m_band], m_band);
    m_rdsTimer.start(scaled(kRdsDelayMs));
}

// After landing on an RDS station: the status (3 with TP), then the name.
void SimRadio::reportRds()
{
    const Station *s = currentStation();
    if (!s || !isFm(m_band) || s->ps.isEmpty()) {
        m_rdsState = 0;
        emit statusChanged(0);
        return;
    }
    m_rdsState = s->tp ? 3 : 1;
    emit statusChanged(m_rdsState);
    emit ProgramName(s->ps);
    emit ptyChanged(s->pty, QString());
}

void SimRadio::setWork(int status)
{
    m_work = status;
    emit work_status(status);
}

void SimRadio::setPreset(int value)
{
    record("setPreset", {value});
    qInfo().noquote() << "radio: setPreset" << value;
    if (value < 0 || value > 5) {
        qWarning().noquote() << "[WAR] sim --" << value << "is not a preset.";
        return;
    }
    tuneTo(m_presets[m_band][value]);
    m_presetPos[m_band] = value + 1;
    if (isFm(m_band)) {
        m_af = m_presetAf[m_band * tuner::kPresetCount + value];
        m_ta = m_presetTa[m_band * tuner::kPresetCount + value];
    }
    saveState();
}

void SimRadio::savePreset(int value)
{
    record("savePreset", {value});
    if (value < 0 || value > 5)
        return;
    m_presets[m_band][value] = m_curFreq[m_band];
    m_presetPos[m_band] = value + 1;
    if (isFm(m_band)) {
        m_presetAf[m_band * tuner::kPresetCount + value] = m_af;
        m_presetTa[m_band * tuner::kPresetCount + value] = m_ta;
    }
    saveState();
}

// --- searches ------------------------------------------------------------------------

void SimRadio::startSeek(bool up)
{
    if (m_work != 0)
        stopSearches();
    const int cur = m_curFreq[m_band];
    const int lo = low(m_band);
    const int span = high(m_band) - lo + step(m_band);
    // The next station in the direction, wrapping round the band.
    int best = cur;
    int bestDistance = span;
    for (const Station &s : stationsOf(m_band)) {
        if (m_local && s.strength < kLocalStrength)
            continue;
        int distance = up ? s.freq - cur : cur - s.freq;
        if (distance <= 0)
            distance += span;
        if (distance < bestDistance || (distance == span && best == cur)) {
            best = s.freq;
            bestDistance = distance;
        }
    }
    m_seekTarget = best;
    setWork(up ? 2 : 3);
    const int steps = bestDistance / qMax(1, step(m_band));
    m_seekTimer.start(scaled(qMax(kSeekMinMs, steps * kSeekMsPerStep)));
}

void SimRadio::finishSeek()
{
    m_curFreq[m_band] = m_seekTarget;
    m_presetPos[m_band] = 0;
    saveState();
    announceStation();
    setWork(0);
}

void SimRadio::autoScan()
{
    record("autoScan", {});
    stopSearches();
    setWork(1);
    m_scanTimer.start(scaled(kScanMs));
}

// The strongest stations go into the presets of the current family, from the
// playing preset (or the first) onwards, in frequency order.
void SimRadio::finishScan()
{
    const int last = isFm(m_band) ? tuner::kFmBandCount - 1 : tuner::kBandCount - 1;
    const int start = m_presetPos[m_band] > 0 ? m_presetPos[m_band] - 1 : 0;
    const int capacity = (last - m_band) * tuner::kPresetCount + (tuner::kPresetCount - start);
    QVector<Station> strongest = stationsOf(m_band);
    std::sort(strongest.begin(), strongest.end(),
              [](const Station &a, const Station &b) { return a.strength > b.strength; });
    strongest.resize(qMin(strongest.size(), capacity));
    std::sort(strongest.begin(), strongest.end(), [](const Station &a, const Station &b) { return a.freq < b.freq; });

    QStringList list;
    int b = m_band;
    int i = start;
    for (const Station &s : strongest) {
        m_presets[b][i] = s.freq;
        list.append(QString::number(s.freq));
        if (++i == tuner::kPresetCount) {
            i = 0;
            ++b;
        }
    }
    m_work = 0;
    if (!strongest.isEmpty()) {
        m_curFreq[m_band] = strongest.first().freq;
        m_presetPos[m_band] = start + 1;
    }
    saveState();
    emit autoScanCompleted(list.join(QLatin1Char(';')));
    announceStation();
    setWork(0);
}

void SimRadio::ptySearch(int pty)
{
    record("ptySearch", {pty});
    stopSearches();
    m_ptyWanted = pty;
    emit seekState(3);
    setWork(4);
    m_ptyTimer.start(scaled(kPtySearchMs));
}

void SimRadio::finishPtySearch()
{
    const Station *found = nullptr;
    if (isFm(m_band)) {
        for (const Station &s : m_stations.fm) {
            if (s.pty == m_ptyWanted && !s.ps.isEmpty()
                && (!found || (found->freq <= m_curFreq[m_band] && s.freq > m_curFreq[m_band])))
                found = &s;
        }
    }
    m_work = 0;
    if (found) {
        m_curFreq[m_band] = found->freq;
        m_presetPos[m_band] = 0;
        saveState();
        announceStation();
        emit seekState(6);
    } else {
        emit seekState(4);
    }
    setWork(0);
}

void SimRadio::stopSearches()
{
    const bool running = m_seekTimer.isActive() || m_scanTimer.isActive() || m_ptyTimer.isActive();
    m_seekTimer.stop();
    m_scanTimer.stop();
    if (m_ptyTimer.isActive()) {
        m_ptyTimer.stop();
        emit seekState(4);
    }
    if (running)
        setWork(0);
}

void SimRadio::terminate()
{
    record("terminate", {});
    const bool running = m_work != 0;
    stopSearches();
    if (running)
        announceStation();
}

// --- switches ---------------------------------------------------------------------

void SimRadio::config(bool isLocal, int rds, int rdsFunc)
{
    record("config", {isLocal, rds, rdsFunc});
    m_local = isLocal;
    saveState();
}

void SimRadio::rdsCtrl(bool ta, bool af, bool regional)
{
    record("rdsCtrl", {ta, af, regional});
    qInfo().noquote() << "radio: rdsCtrl" << ta << af << regional;
    m_ta = ta;
    m_af = af;
    m_regional = regional;
    saveState();
}

void SimRadio::setAf(bool state)
{
    record("setAf", {state});
    m_af = state;
    saveState();
}

void SimRadio::setTa(bool state)
{
    record("setTa", {state});
    qInfo().noquote() << "radio: setTa" << state;
    m_ta = state;
    saveState();
}

void SimRadio::taAlarmCancel(int type)
{
    record("taAlarmCancel", {type});
    qInfo().noquote() << "radio: taAlarmCancel" << type;
}

// --- control surface -------------------------------------------------------------

void SimRadio::startInterrupt(int code)
{
    m_piTp = code;
    qInfo().noquote() << "sim: tp_pi_status" << code;
    emit tp_pi_status(code);
}

void SimRadio::setStationName(int freq, const QString &name)
{
    for (Station &s : m_stations.fm) {
        if (s.freq == freq) {
            s.ps = name;
            if (isFm(m_band) && m_curFreq[m_band] == freq)
                reportRds();
            return;
        }
    }
    m_stations.fm.append(Station{freq, name, 0, false, 50});
    m_stations.fitToBand(m_stations.fm, m_fmLow, m_fmHigh, m_fmStep);
}

void SimRadio::setStationTp(int freq, bool tp)
{
    for (Station &s : m_stations.fm) {
        if (s.freq == freq) {
            s.tp = tp;
            if (isFm(m_band) && m_curFreq[m_band] == freq)
                reportRds();
        }
    }
}

void SimRadio::setStationPty(int freq, int pty)
{
    for (Station &s : m_stations.fm) {
        if (s.freq == freq)
            s.pty = pty;
    }
}

void SimRadio::setTimeScale(int percent)
{
    m_timeScale = qBound(1, percent, 1000);
}

QString SimRadio::stateJson() const
{
    QJsonObject o;
    o.insert(QStringLiteral("band"), m_band);
    o.insert(QStringLiteral("frequency"), m_curFreq[m_band]);
    o.insert(QStringLiteral("workStatus"), m_work);
    o.insert(QStringLiteral("rdsState"), m_rdsState);
    o.insert(QStringLiteral("programName"), currentPs());
    o.insert(QStringLiteral("piTpStatus"), m_piTp);
    o.insert(QStringLiteral("local"), m_local);
    o.insert(QStringLiteral("af"), m_af);
    o.insert(QStringLiteral("ta"), m_ta);
    o.insert(QStringLiteral("regional"), m_regional);
    QJsonArray presets;
    for (const auto &band : m_presets) {
        QJsonArray row;
        for (int f : band)
            row.append(f);
        presets.append(row);
    }
    o.insert(QStringLiteral("presets"), presets);
    return QString::fromUtf8(QJsonDocument(o).toJson(QJsonDocument::Compact));
}

// --- persistence --------------------------------------------------------------------

void SimRadio::loadState()
{
    QFile file(m_stateFile);
    if (m_stateFile.isEmpty() || !file.open(QIODevice::ReadOnly))
        return;
    m_savedState = file.readAll();
    const QJsonObject o = QJsonDocument::fromJson(m_savedState).object();
    const int band = o.value(QLatin1String("band")).toInt(-1);
    if (band >= 0 && band <= 4)
        m_band = band;
    const QJsonArray current = o.value(QLatin1String("current")).toArray();
    const QJsonArray presets = o.value(QLatin1String("presets")).toArray();
    const QJsonArray positions = o.value(QLatin1String("positions")).toArray();
    for (int b = 0; b < 5; ++b) {
        if (b < current.size())
            m_curFreq[b] = qBound(low(b), current.at(b).toInt(), high(b));
        if (b < positions.size())
            m_presetPos[b] = qBound(0, positions.at(b).toInt(), tuner::kPresetCount);
        const QJsonArray row = presets.at(b).toArray();
        for (int i = 0; i < tuner::kPresetCount && i < row.size(); ++i)
            m_presets[b][i] = row.at(i).toInt();
    }
    const QJsonArray af = o.value(QLatin1String("presetAf")).toArray();
    const QJsonArray ta = o.value(QLatin1String("presetTa")).toArray();
    for (int i = 0; i < 18; ++i) {
        m_presetAf[i] = af.at(i).toBool();
        m_presetTa[i] = ta.at(i).toBool();
    }
    m_local = o.value(QLatin1String("local")).toBool(m_local);
    m_regional = o.value(QLatin1String("regional")).toBool(m_regional);
    m_af = o.value(QLatin1String("af")).toBool(m_af);
    m_ta = o.value(QLatin1String("ta")).toBool(m_ta);
}

void SimRadio::saveState() const
{
    if (m_stateFile.isEmpty())
        return;
    QJsonObject o;
    QJsonArray current, presets, positions, af, ta;
    for (int b = 0; b < 5; ++b) {
        current.append(m_curFreq[b]);
        positions.append(m_presetPos[b]);
        QJsonArray row;
        for (int f : m_presets[b])
            row.append(f);
        presets.append(row);
    }
    for (int i = 0; i < 18; ++i) {
        af.append(m_presetAf[i]);
        ta.append(m_presetTa[i]);
    }
    o.insert(QStringLiteral("band"), m_band);
    o.insert(QStringLiteral("current"), current);
    o.insert(QStringLiteral("positions"), positions);
    o.insert(QStringLiteral("presets"), presets);
    o.insert(QStringLiteral("presetAf"), af);
    o.insert(QStringLiteral("presetTa"), ta);
    o.insert(QStringLiteral("local"), m_local);
    o.insert(QStringLiteral("regional"), m_regional);
    o.insert(QStringLiteral("af"), m_af);
    o.insert(QStringLiteral("ta"), m_ta);
    const QByteArray state = QJsonDocument(o).toJson();
    if (state == m_savedState)
        return;
    QDir().mkpath(QFileInfo(m_stateFile).absolutePath());
    QFile file(m_stateFile);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(state) != state.size()) {
        qWarning().noquote() << "[WAR] sim --" << m_stateFile << "cannot be written.";
        m_savedState.clear();
        return;
    }
    m_savedState = state;
}

} // namespace sim
