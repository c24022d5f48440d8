#pragma once

#include <QString>
#include <QVector>

namespace sim {

struct Station
{
    int freq = 0;
    QString ps; // programme-service name; empty for no RDS
    int pty = 0;
    bool tp = false;
    int strength = 50;
};

struct StationList
{
    QVector<Station> fm;
    QVector<Station> am;

    // Reads the JSON station file; false (and a warning) when it cannot be used.
    bool load(const QString &path);
    // Moves every station onto the band's grid and drops those outside it.
    void fitToBand(QVector<Station> &stations, int low, int high, int step);
};

} // namespace sim
