#include "rdsstation.h"

#include "displayline.h"
#include "preferences.h"
#include "presetpages.h"
#include "radiocontrol.h"
#include "rdscodes.h"
#include "tunedfrequency.h"
#include "ui_c20_003_tuner.h"

namespace tuner {

namespace {

const QLatin1String kNoName("NULL");

} // namespace

RdsStation::RdsStation(Ui::c20_003_tuner *form, DisplayLine &line, PresetPages &pages, const TunedFrequency &frequency,
                       const RadioControl &control)
    : ui(form)
    , m_line(line)
    , m_pages(pages)
    , m_frequency(frequency)
    , m_control(control)
{}

void RdsStation::showName(QString name)
{
    Preferences *p = prefs();
    const bool none = name.isEmpty() || name == kNoName;
    if (!none)
        name = Preferences::delControlChar(name);
    m_line.showName(name == kNoName ? QString() : name, p->isFM());

    const int id = p->playFreqId();
    if (!p->isFM() || id < 0 || id >= kPresetCount || name.isEmpty())
        return;
    if (name == kNoName) {
        m_pages.showFrequency(p->band(), id, m_frequency.text(p->playFreq()));
        p->saveRdsName(p->band(), id, QString());
    } else {
        m_pages.showName(p->band(), id, name);
        p->saveRdsName(p->band(), id, name);
    }
}

void RdsStation::showStatus(int state)
{
    QLabel *rds = m_line.rdsIcon();
    QLabel *tp = m_line.tpIcon();
    const auto hide = [&] {
        for (QLabel *label : {rds, tp}) {
            if (label)
                label->hide();
        }
        m_line.hideName();
    };
    if (!prefs()->isFM()) {
        hide();
        return;
    }
    const RdsState rdsState = rdsStateOf(state);
    if (rdsState != RdsState::None) {
        if (rds)
            rds->show();
        if (tp)
            tp->setVisible(rdsState == RdsState::RdsWithTp);
        return;
    }
    prefs()->setCurRdsName(QString());
    hide();
    if (QLabel *freq = m_line.freq())
        freq->show();
    m_line.setFrequencyText(m_frequency.text(m_control.lastFrequency()));
    if (m_line.mode() == 0)
        ui->Txt_0020_rds_unit->show();
}

void RdsStation::clear()
{
    showStatus(0);
    prefs()->setRdsStatus(0);
    showName(QString());
}

} // namespace tuner
