#pragma once

#include <QString>

namespace tuner {

// The frequency grid of the band being shown, free of widgets: the value on
// the dial, its range and step, how it reads, and the grid arithmetic that
// the tuner uses wherever a frequency enters or moves.
class FrequencyDial
{
public:
    // Stored frequencies: clamped into the band, then snapped down to the grid.
    static int detect(int freq, int min, int max, int step);
    // Reported frequencies: 0 stays 0, outside the band gives -1, else
    // snapped down to the grid.
    static int normalize(int freq, int low, int high, int step);
    // One manual step; past an edge it wraps to the other edge.
    static int stepUp(int freq, int low, int high, int step);
    static int stepDown(int freq, int low, int high, int step);

    // FM shows two decimals on a 5 kHz grid, one on coarser grids; AM none.
    void setStep(int step, bool fm);
    void setRange(int low, int high);
    // False, and the value kept, when `value` lies outside the range.
    bool setValue(int value);

    int value() const { return m_value; }
    int step() const { return m_step; }
    int next(bool up) const;
    // 8750 reads 87.50 with two decimals, 87.5 with one; AM values as they are.
    QString text(int value) const;

private:
    int m_value = 0;
    int m_step = 10;
    int m_decimals = 0;
    int m_minimum = 0;
    int m_maximum = 0;
};

} // namespace tuner
