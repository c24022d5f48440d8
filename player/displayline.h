#pragma once

#include <QPointer>

class QLabel;
class QString;

namespace Ui {
class c20_003_tuner;
}

namespace tuner {

class ShownStation;

// The display line chosen in the vehicle settings: mode 1 shows frequency and
// station name together (page_tuner_01), mode 0 one or the other
// (page_tuner_02). For any other mode there is no such widget (null). What it
// shows of the station it also writes to `shown`, for the media player; a
// host that keeps the screen after the window is gone leaves it unwritten.
class DisplayLine
{
public:
    DisplayLine(Ui::c20_003_tuner *form, ShownStation *shown);

    int mode() const;
    QLabel *freq() const;
    QLabel *unit() const;
    QLabel *name() const;
    QLabel *rdsIcon() const;
    QLabel *tpIcon() const;
    // Turns to the mode's page; false for an unknown mode.
    bool turnToPage();
    // Turns to the mode's page and shows the frequency there.
    void showFrequency(const QString &text);
    // The same, on whichever page is up.
    void setFrequencyText(const QString &text);
    // A recalled preset's frequency, at once and without the station's icons.
    void showRecalledFrequency(const QString &text);
    void showUnit(bool fm);
    // The station's name, or none ("" after "NULL"); on AM no name shows.
    void showName(const QString &name, bool fm);
    void hideName();
    // page_tuner_02 with its RDS and TP icons, under the interrupt popup.
    void showInterruptPage();
    // On AM, page_tuner_02 shows the frequency and nothing of RDS.
    void showAmFrequencyPage();

private:
    QLabel *pick(QLabel *mode1, QLabel *mode0) const;
    // In mode 1 a traffic announcement or alarm turns to page_tuner_02, which
    // stays up after it until the next report: its labels follow mode 1's.
    void mirror(QLabel *mode1Label, QLabel *page2Label, const QString &text);

    Ui::c20_003_tuner *ui;
    void tell(void (ShownStation::*set)(const QString &), const QString &value);

    QPointer<ShownStation> m_shown;
};

} // namespace tuner
