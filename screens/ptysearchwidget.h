#pragma once

#include <QWidget>

class QTimer;

namespace Ui {
class c35_004_text_w_button;
}

namespace tuner {

// Shown while the radio searches for the chosen programme type: the type's
// name, searching or not found, dots while it runs, Close once it failed.
class PTYSearchWidget : public QWidget
{
    Q_OBJECT
public:
    explicit PTYSearchWidget(QWidget *parent = nullptr);
    ~PTYSearchWidget() override;

    void hideCloseBtn();
    void showCloseBtn();
    void retranslateUi();
    // Texts fetched again after the host switched languages.
    void retranslate();
    bool isAnimating() const;

signals:
    void closePTYSearchWnd();
    void PTYStatus(int);
    void PTYSearchName(QString string);

public slots:
    void onPTYSerachStatus(int type);
    void onPTYSerachName(QString name);
    void onClose_0085();
    void onTimer();

private:
    Ui::c35_004_text_w_button *ui;
    QString m_name;
    QTimer *m_timer;
    int m_step = 0;
    QString m_dots;
};

} // namespace tuner
