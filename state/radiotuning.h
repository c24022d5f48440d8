#pragma once

#include <QVector>

namespace tuner {

// The radio's tuning state as the service tells it at start-up: which family
// plays and its band, the limits and steps of both families, every band's
// frequency and preset position (1-based, 0 for none), each family's presets,
// and the Local and Regional switches. The lists are numbers, checked where
// they enter the tuner.
struct RadioTuning
{
    int bandSwitch = 0;
    int bandId = 0;
    QVector<int> fmList;
    QVector<int> amList;
    int fmMax = 0;
    int fmMin = 0;
    int fmStep = 0;
    int amMax = 0;
    int amMin = 0;
    int amStep = 0;
    QVector<int> bandCurFreq;
    QVector<int> bandPos;
    int local = 0;
    int regional = 0;
};

} // namespace tuner
