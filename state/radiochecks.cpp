#include "radiochecks.h"

#include "preferences.h"
#include "tunerlog.h"

#include <QStringList>

namespace tuner::radiocheck {

namespace {

bool isControl(QChar c)
{
    return c.unicode() < 0x20 || c.unicode() == 0x7F;
}

// The first `maxItems` items of a ";" list, without splitting the rest of a
// huge one; *more tells whether anything was left over.
QStringList leadingItems(const QString &items, int maxItems, bool *more)
{
    QStringList result;
    int from = 0;
    *more = false;
    while (from <= items.size()) {
        if (result.size() == maxItems) {
            *more = true;
            break;
        }
        int end = items.indexOf(QLatin1Char(';'), from);
        if (end < 0)
            end = items.size();
        result.append(items.mid(from, end - from));
        from = end + 1;
    }
    return result;
}

bool sane(int low, int high, int step)
{
    return low > 0 && high >= low && step > 0;
}

} // namespace

QString name(const QString &text, const char *what)
{
    QString kept;
    kept.reserve(qMin(text.size(), kMaxNameLength));
    bool controls = false;
    bool cut = false;
    for (const QChar c : text) {
        if (isControl(c)) {
            controls = true;
        } else if (kept.size() == kMaxNameLength) {
            cut = true;
            break;
        } else {
            kept.append(c);
        }
    }
    if (cut)
        TUNER_WAR() << what << "of" << text.size() << "characters is cut to" << kMaxNameLength << ":" << kept;
    else if (controls)
        TUNER_WAR() << what << kept << "had control characters, removed.";
    return kept;
}

QString nameList(const QString &names, int maxItems, const char *what)
{
    bool more = false;
    QStringList items = leadingItems(names, maxItems, &more);
    if (more)
        TUNER_WAR() << what << "has more than" << maxItems << "names; the rest is dropped.";
    for (QString &item : items)
        item = name(item, what);
    return items.join(QLatin1Char(';'));
}

QString list(const QString &items, int maxItems, const char *what)
{
    bool more = false;
    const QStringList kept = leadingItems(items, maxItems, &more);
    if (!more)
        return items;
    TUNER_WAR() << what << "has more than" << maxItems << "items; the rest is dropped.";
    return kept.join(QLatin1Char(';'));
}

QString frequencyList(const QString &items, int maxItems, int low, int high, OutOfRange rule, const char *what)
{
    bool more = false;
    const QStringList parts = leadingItems(items, maxItems, &more);
    if (more)
        TUNER_WAR() << what << "has more than" << maxItems << "items; the rest is dropped.";
    QStringList kept;
    QStringList outside;
    for (const QString &part : parts) {
        bool ok = false;
        const int freq = part.trimmed().toInt(&ok, 10);
        if (!ok || freq <= 0 || (freq >= low && freq <= high)) {
            kept.append(part);
            continue;
        }
        outside.append(part);
        if (rule == OutOfRange::Clamp)
            kept.append(QString::number(qBound(low, freq, high)));
    }
    if (!outside.isEmpty()) {
        TUNER_WAR() << what << outside.join(QLatin1Char(';')) << "outside" << low << ".." << high
                    << (rule == OutOfRange::Clamp ? "clamped." : "dropped.");
    }
    return kept.join(QLatin1Char(';'));
}

int band(int band, int fallback, const char *what)
{
    if (Preferences::isValidBand(band))
        return band;
    TUNER_WAR() << what << band << "is not a band (0..4);" << fallback << "taken.";
    return fallback;
}

bool inAnyBand(int freq)
{
    const Preferences *p = prefs();
    return (freq >= p->fmMinFreq() && freq <= p->fmMaxFreq()) || (freq >= p->amMinFreq() && freq <= p->amMaxFreq());
}

int rdsStatus(int state)
{
    switch (state) {
    case 0:
    case 1:
    case 3:
    case 5:
    case 7:
        return state;
    default:
        TUNER_WAR() << state << "is not an RDS state; read as 0 (no RDS).";
        return 0;
    }
}

int workStatus(int state)
{
    if (state >= 0 && state <= 5)
        return state;
    TUNER_WAR() << state << "is not a work state; read as 0 (idle).";
    return 0;
}

bool ptyCode(int pty)
{
    if (pty >= 0 && pty <= 31)
        return true;
    TUNER_WAR() << pty << "is not a programme type, report dropped.";
    return false;
}

void initData(InitData &d)
{
    const Preferences *p = prefs();
    d.bandId = band(d.bandId, p->band(), "band_id");
    if (!sane(d.fmMin, d.fmMax, d.fmStep)) {
        TUNER_WAR() << "FM range" << d.fmMin << d.fmMax << d.fmStep << "is not usable; the known one is kept.";
        d.fmMin = p->fmMinFreq();
        d.fmMax = p->fmMaxFreq();
        d.fmStep = p->fmStep();
    }
    if (!sane(d.amMin, d.amMax, d.amStep)) {
        TUNER_WAR() << "AM range" << d.amMin << d.amMax << d.amStep << "is not usable; the known one is kept.";
        d.amMin = p->amMinFreq();
        d.amMax = p->amMaxFreq();
        d.amStep = p->amStep();
    }
    d.fmList = frequencyList(d.fmList, kMaxFmPresets, d.fmMin, d.fmMax, OutOfRange::Clamp, "fm_list");
    d.amList = frequencyList(d.amList, kMaxAmPresets, d.amMin, d.amMax, OutOfRange::Clamp, "am_list");
    d.bandPos = list(d.bandPos, kMaxBands, "band_position");
    // One current frequency per band, each in its own family's range.
    bool more = false;
    QStringList current = leadingItems(d.bandCurFreq, kMaxBands, &more);
    if (more)
        TUNER_WAR() << "band_current_freq has more than" << kMaxBands << "items; the rest is dropped.";
    for (int b = 0; b < current.size(); ++b) {
        const bool fm = Preferences::isFmBand(b);
        current[b] = frequencyList(current.at(b), 1, fm ? d.fmMin : d.amMin, fm ? d.fmMax : d.amMax,
                                   OutOfRange::Clamp, "band_current_freq");
    }
    d.bandCurFreq = d.bandCurFreq.isEmpty() ? QString() : current.join(QLatin1Char(';'));
}

} // namespace tuner::radiocheck
