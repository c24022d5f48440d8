#include "radiochecks.h"

#include "preferences.h"
#include "rdscodes.h"
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

QString values(const QString &items, int maxItems, const char *what)
{
    QStringList kept;
    for (int from = 0; from <= items.size();) {
        int end = items.indexOf(QLatin1Char(';'), from);
        if (end < 0)
            end = items.size();
        if (end > from) {
            if (kept.size() == maxItems) {
                TUNER_WAR() << what << "has more than" << maxItems << "items; the rest is dropped.";
                break;
            }
            kept.append(items.mid(from, end - from));
        }
        from = end + 1;
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

int rdsStatus(int state)
{
    if (state == 0 || rdsStateOf(state) != RdsState::None)
        return state;
    TUNER_WAR() << state << "is not an RDS state; read as 0 (no RDS).";
    return 0;
}

bool ptyCode(int pty)
{
    if (pty >= 0 && pty <= kMaxPtyCode)
        return true;
    TUNER_WAR() << pty << "is not a programme type, report dropped.";
    return false;
}

QVector<int> numbers(const QString &items, int maxItems, const char *what)
{
    const QString kept = values(items, maxItems, what);
    QVector<int> result;
    if (kept.isEmpty())
        return result;
    for (const QString &item : kept.split(QLatin1Char(';'))) {
        bool ok = false;
        const int value = item.trimmed().toInt(&ok, 10);
        if (!ok)
            TUNER_WAR() << what << item << "is not a number, read as 0.";
        result.append(ok ? value : 0);
    }
    return result;
}

RadioTuning tuning(int bandSwitch, int bandId, const QString &fmList, const QString &amList, int fmMax, int fmMin,
                   int fmStep, int amMax, int amMin, int amStep, const QString &bandCurFreq, const QString &bandPos,
                   int local, int regional)
{
    const Preferences *p = prefs();
    RadioTuning t;
    t.bandSwitch = bandSwitch;
    t.bandId = band(bandId, p->band(), "band_id");
    t.fmMax = fmMax;
    t.fmMin = fmMin;
    t.amMax = amMax;
    t.amMin = amMin;
    // Frequencies are snapped with the step: a step of 0 would divide by zero.
    t.fmStep = fmStep;
    if (fmStep <= 0) {
        TUNER_WAR() << "FM step" << fmStep << "is not usable; the known one," << p->fmStep() << ", is kept.";
        t.fmStep = p->fmStep();
    }
    t.amStep = amStep;
    if (amStep <= 0) {
        TUNER_WAR() << "AM step" << amStep << "is not usable; the known one," << p->amStep() << ", is kept.";
        t.amStep = p->amStep();
    }
    t.fmList = numbers(fmList, kMaxFmPresets, "fm_list");
    t.amList = numbers(amList, kMaxAmPresets, "am_list");
    t.bandPos = numbers(bandPos, kMaxBands, "band_position");
    t.bandCurFreq = numbers(bandCurFreq, kMaxBands, "band_current_freq");
    t.local = local;
    t.regional = regional;
    return t;
}

} // namespace tuner::radiocheck
