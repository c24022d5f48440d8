#include "frequencydial.h"

#include "tunerlog.h"

namespace tuner {

namespace {

bool snappable(int freq, int low, int high, int step)
{
    if (step > 0)
        return true;
    TUNER_WAR() << freq << low << high << step << "step is not positive, frequency not snapped.";
    return false;
}

} // namespace

int FrequencyDial::detect(int freq, int min, int max, int step)
{
    if (freq < min)
        return min;
    if (freq > max)
        return max;
    if (!snappable(freq, min, max, step))
        return freq;
    return int(min + step * ((qint64(freq) - min) / step));
}

int FrequencyDial::normalize(int freq, int low, int high, int step)
{
    if (freq == 0)
        return 0;
    if (freq < low || freq > high)
        return -1;
    if (!snappable(freq, low, high, step))
        return freq;
    return int(low + ((qint64(freq) - low) / step) * step);
}

int FrequencyDial::stepUp(int freq, int low, int high, int step)
{
    const qint64 next = qint64(freq) + step; // a range up to INT_MAX must not overflow
    return next > high ? low : int(next);
}

int FrequencyDial::stepDown(int freq, int low, int high, int step)
{
    const qint64 next = qint64(freq) - step;
    return next < low ? high : int(next);
}

void FrequencyDial::setStep(int step, bool fm)
{
    m_step = step;
    m_decimals = !fm ? 0 : m_step > 9 ? 1 : 2;
}

void FrequencyDial::setRange(int low, int high)
{
    m_minimum = low;
    m_maximum = high;
}

bool FrequencyDial::setValue(int value)
{
    if (value < m_minimum || value > m_maximum)
        return false;
    m_value = value;
    return true;
}

int FrequencyDial::next(bool up) const
{
    return up ? stepUp(m_value, m_minimum, m_maximum, m_step) : stepDown(m_value, m_minimum, m_maximum, m_step);
}

QString FrequencyDial::text(int value) const
{
    QString digits = QString::number(value);
    if (m_decimals == 1)
        digits.chop(1);
    if (m_decimals != 0) {
        if (digits.size() <= m_decimals)
            digits = digits.rightJustified(m_decimals + 1, QLatin1Char('0'));
        digits.insert(digits.size() - m_decimals, QLatin1Char('.'));
    }
    return digits;
}

} // namespace tuner
