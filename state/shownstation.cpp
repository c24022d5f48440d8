#include "shownstation.h"

namespace tuner {

void ShownStation::update(QString &field, const QString &value)
{
    if (field == value)
        return;
    field = value;
    emit changed();
}

void ShownStation::setFrequency(const QString &text)
{
    update(m_frequency, text);
}

void ShownStation::setUnit(const QString &unit)
{
    update(m_unit, unit);
}

void ShownStation::setName(const QString &name)
{
    update(m_name, name);
}

QString ShownStation::frequencyAndUnit() const
{
    if (m_unit.isEmpty())
        return m_frequency;
    return m_frequency + QLatin1Char(' ') + m_unit;
}

QString ShownStation::title() const
{
    return m_name.trimmed().isEmpty() ? frequencyAndUnit() : m_name;
}

} // namespace tuner
