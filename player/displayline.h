#pragma once

class QLabel;
class QString;

namespace Ui {
class c20_003_tuner;
}

namespace tuner {

// The display line chosen in the vehicle settings: mode 1 shows frequency and
// station name together (page_tuner_01), mode 0 one or the other
// (page_tuner_02). For any other mode there is no such widget (null).
class DisplayLine
{
public:
    explicit DisplayLine(Ui::c20_003_tuner *form);

    int mode() const;
    QLabel *freq() const;
    QLabel *unit() const;
    QLabel *name() const;
    QLabel *rdsIcon() const;
    QLabel *tpIcon() const;
    // Turns to the mode's page; false for an unknown mode.
    bool turnToPage();
    void showFrequency(const QString &text);

private:
    QLabel *pick(QLabel *mode1, QLabel *mode0) const;

    Ui::c20_003_tuner *ui;
};

} // namespace tuner
