#pragma once

#include <QBasicTimer>
#include <QObject>

class QLabel;
class QWidget;

namespace tuner {

class DisplayLine;
class InterruptBanner;
class PresetLabels;
class PresetPages;
class RadioControl;
class RdsStation;
class TunedFrequency;

// Moving between bands: the band key switches between the FM and AM families,
// the remote's band key steps through all five bands, and turning a preset
// page enters that page's band.
class BandSwitch : public QObject
{
    Q_OBJECT
public:
    // The band key works while `screen` is visible.
    BandSwitch(const QWidget &screen, RadioControl &control, PresetPages &pages, PresetLabels &labels,
               TunedFrequency &frequency, RdsStation &rds, DisplayLine &line, const InterruptBanner &banner,
               QWidget *bandKey, QLabel *bandName);

    // Shows the stored band's family and page, without animation.
    void showStoredBand();
    // The band name and the preset pages of one family.
    void showFamily(bool fm);
    void retranslate();
    // The band key: the other family.
    void switchFamily();
    // The remote's band key: the next band, across families.
    void nextBand();
    // The service reports the switch done (1): the band key works again.
    void switchDone(int state);
    void enterFmPage(int page);
    // A page (0, 1) or a band (3, 4).
    void enterAmPage(int page);

signals:
    // After a family switch, whatever ran before shows as ended.
    void familySwitched();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void showBandName(bool fm);
    void enter(int band);
    void unlockKey();

    const QWidget &m_screen;
    RadioControl &m_control;
    PresetPages &m_pages;
    PresetLabels &m_labels;
    TunedFrequency &m_frequency;
    RdsStation &m_rds;
    DisplayLine &m_line;
    const InterruptBanner &m_banner;
    QWidget *m_bandKey;
    QLabel *m_bandName;
    QBasicTimer m_keyLock;
    bool m_fromRemote = false;     // the next family switch comes from the remote's band key
    bool m_familySwitched = false; // the next page entered shows its band's frequency
    bool m_bandShown = false;      // the stored band is up: entering an FM page clears the RDS state
    bool m_showingStored = false;  // the pages turn to the stored band, not at the user's touch
};

} // namespace tuner
