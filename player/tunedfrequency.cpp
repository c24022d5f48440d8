#include "tunedfrequency.h"

#include "displayline.h"
#include "preferences.h"
#include "radiocontrol.h"

namespace tuner {

TunedFrequency::TunedFrequency(DisplayLine &line, RadioControl &control)
    : m_line(line)
    , m_control(control)
{}

void TunedFrequency::followBand()
{
    const Preferences *p = prefs();
    setRange(p->lowFreq(), p->highFreq());
    setStep(p->stepFreq());
}

void TunedFrequency::setStep(int step)
{
    m_dial.setStep(step, prefs()->isFM());
}

void TunedFrequency::setValue(int value)
{
    if (!m_dial.setValue(value))
        return;
    m_line.showFrequency(text(value));
    m_control.setLastFrequency(value);
}

void TunedFrequency::showLast()
{
    setValue(m_control.lastFrequency());
}

} // namespace tuner
