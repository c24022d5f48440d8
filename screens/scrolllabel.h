#pragma once

#include <QLabel>
#include <QPixmap>
#include <QTimer>

// A label that runs its text across itself as a marquee, one full pass at a
// time, painted as a white glyph path with a thin black outline so it stays
// legible over any background. Any press is reported as clicked().
class ScrollLabel : public QLabel
{
    Q_OBJECT
public:
    explicit ScrollLabel(QWidget *parent = nullptr);

    void onStart();
    void onStop();
    void show();
    void updateCoordinates();

    int xPosition() const { return m_x; }
    bool isRunning() const { return m_running; }
    bool isTimerActive() const { return m_timer.isActive(); }
    int timerInterval() const { return m_timer.interval(); }

signals:
    void clicked();
    void slabelState(bool running);

public slots:
    void refreshLabel();
    void slotClicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    const QPixmap &textImage();

    int m_x = 0;
    int m_yOffset = 0;
    int m_step = 2;
    int m_pointSize = 0;
    int m_textWidth = 0;
    int m_hold = 1;
    int m_wrap = 0;
    QTimer m_timer;
    bool m_running = false;

    // The outlined text as last rendered, and what it was rendered from.
    QPixmap m_textImage;
    QPoint m_textImageOrigin;
    QString m_imageText;
    QFont m_imageFont;
    int m_imageBaseline = -1;
    qreal m_imageRatio = 0;
};
