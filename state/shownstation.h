#pragma once

#include <QObject>
#include <QString>

namespace tuner {

// The station as the tuner screen's display line shows it: the frequency
// text, its unit and the station name (empty while no name is shown). The
// display line writes it as it writes its labels; whoever shows the station
// elsewhere (the media player) reads it here, so the two never disagree.
class ShownStation : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    void setFrequency(const QString &text);
    void setUnit(const QString &unit);
    void setName(const QString &name);

    QString frequency() const { return m_frequency; }
    QString unit() const { return m_unit; }
    QString name() const { return m_name; }
    // "94.50 MHz": the frequency with its unit.
    QString frequencyAndUnit() const;
    // The name when one is shown, else the frequency with its unit.
    QString title() const;

signals:
    void changed();

private:
    void update(QString &field, const QString &value);

    QString m_frequency;
    QString m_unit;
    QString m_name;
};

} // namespace tuner
