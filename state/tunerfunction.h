#pragma once

#include "tunerkeys.h"

#include <QBasicTimer>
#include <QObject>

class NiloRadioServiceInterface;

namespace tuner {

// Carries out hardware-key actions (seek, manual step, preset step, select and
// store, band change) on the radio service without any screen.
class tunerfunction : public QObject
{
    Q_OBJECT
public:
    static tunerfunction *Instance();
    // Drops the instance so the next Instance() starts afresh (tests).
    static void resetInstance();

    void seekForward();
    void seekBackward();
    void ManualPlusClicked();
    void ManualMinusClicked();
    void ManualPlusPressed();
    void ManualPlusReleased();
    void ManualMinusPressed();
    void ManualMinusReleased();
    void presetUP();
    void presetDown();
    void presetUpPressed();
    void presetUpReleased();
    void presetDWPressed();
    void presetDWReleased();
    void presetSelect(int index);
    void savePreset(int index);
    void changBand();
    void clearFreqid();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    tunerfunction();
    ~tunerfunction() override = default;

    class TFunction
    {
    public:
        ~TFunction();
    };

    SearchGate seekGate() const;
    SearchGate presetGate() const;
    bool stopSearch(SearchGate gate);
    void clearRdsState();
    void seek(bool up);
    void manualClicked(bool plus);
    void manualPlus();
    void manualMinus();
    void manualPressed(QBasicTimer &timer);
    void manualReleased(QBasicTimer &timer);
    void stepToPreset(int preset);

    static tunerfunction *p_Instance;

    NiloRadioServiceInterface *m_radio;
    QBasicTimer m_manualPlusTimer;
    QBasicTimer m_manualMinusTimer;
    QBasicTimer m_presetUpTimer;
    QBasicTimer m_presetDownTimer;
};

} // namespace tuner
