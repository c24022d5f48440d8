#include "rdsstation.h"

#include "displayline.h"
#include "frequencydial.h"
#include "preferences.h"
#include "presetpages.h"
#include "radiocontrol.h"
#include "scrolllabel.h"
#include "ui_c20_003_tuner.h"

namespace tuner {

namespace {

const QLatin1String kNoName("NULL");

} // namespace

RdsStation::RdsStation(Ui::c20_003_tuner *form, DisplayLine &line, PresetPages &pages, const FrequencyDial &dial,
                       const RadioControl &control)
    : ui(form)
    , m_line(line)
    , m_pages(pages)
    , m_dial(dial)
    , m_control(control)
{
}

void RdsStation::showName(QString name)
{
    Preferences *p = prefs();
    const bool none = name.isEmpty() || name == kNoName;
    if (!none)
        name = Preferences::delControlChar(name);
    const QString shown = name == kNoName ? QString() : name;
    const int mode = m_line.mode();
    m_line.turnToPage();
    if (mode == 0) {
        const bool showName = p->isFM() && !none;
        ui->Txt_0019_rds_freq->setVisible(!showName);
        ui->Txt_0020_rds_unit->setVisible(!showName);
        ui->Txt_0018_rds_name->setVisible(showName);
        ui->Txt_0018_rds_name->setText(shown);
    } else if (mode == 1) {
        ScrollLabel *label = ui->Txt_0037_rds_name;
        label->setVisible(p->isFM());
        label->setText(shown);
        label->updateCoordinates();
        // A name longer than the label runs as a marquee.
        if (label->fontMetrics().horizontalAdvance(shown) > label->width())
            label->onStart();
        else
            label->onStop();
    }

    const int id = p->playFreqId();
    if (!p->isFM() || id < 0 || id >= kPresetCount || name.isEmpty())
        return;
    if (name == kNoName) {
        m_pages.showFrequency(p->band(), id, m_dial.text(p->playFreq()));
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
    QLabel *name = m_line.name();
    const auto hide = [](std::initializer_list<QLabel *> labels) {
        for (QLabel *label : labels) {
            if (label)
                label->hide();
        }
    };
    if (!prefs()->isFM()) {
        hide({rds, tp, name});
        return;
    }
    if (state == 1 || state == 3 || state == 5 || state == 7) {
        if (rds)
            rds->show();
        if (tp)
            tp->setVisible(state != 1);
        return;
    }
    prefs()->setCurRdsName(QString());
    hide({rds, tp, name});
    if (QLabel *freq = m_line.freq())
        freq->show();
    m_line.setFrequencyText(m_dial.text(m_control.lastFrequency()));
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
