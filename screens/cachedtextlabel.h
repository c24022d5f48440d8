#pragma once

#include <QLabel>
#include <QPixmap>

// A plain-text label that keeps the pixels it drew. The station name's
// marquee passes over the frequency every 20 ms; without the cache each tick
// lays out and shapes the large digits again just to repaint a strip of them.
class CachedTextLabel : public QLabel
{
    Q_OBJECT
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    // What the cached pixels depend on besides the font, palette and size,
    // which invalidate it through their change events.
    struct Look
    {
        QString text;
        Qt::Alignment alignment;
        int indent = 0;
        int margin = 0;
        bool operator==(const Look &other) const
        {
            return text == other.text && alignment == other.alignment && indent == other.indent
                   && margin == other.margin;
        }
    };
    Look currentLook() const;
    void refill();

    QPixmap m_pixels;
    Look m_look;
    bool m_valid = false;
    bool m_rendering = false;
    bool m_refillQueued = false;
};
