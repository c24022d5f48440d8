#include "cachedtextlabel.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

CachedTextLabel::Look CachedTextLabel::currentLook() const
{
    return Look{text(), alignment(), indent(), margin()};
}

void CachedTextLabel::paintEvent(QPaintEvent *event)
{
    const bool cacheable = textFormat() != Qt::RichText && !text().isEmpty() && pixmap(Qt::ReturnByValue).isNull();
    if (m_rendering || !cacheable || !m_valid || !(currentLook() == m_look)) {
        QLabel::paintEvent(event);
        // A widget cannot render itself from inside its own paint event: the
        // cache is filled once this paint is done.
        if (cacheable && !m_rendering && !m_refillQueued) {
            m_refillQueued = true;
            QTimer::singleShot(0, this, &CachedTextLabel::refill);
        }
        return;
    }
    const qreal ratio = m_pixels.devicePixelRatio();
    const QRect dirty = event->rect();
    QPainter(this).drawPixmap(dirty, m_pixels, QRectF(QPointF(dirty.topLeft()) * ratio, QSizeF(dirty.size()) * ratio));
}

void CachedTextLabel::refill()
{
    m_refillQueued = false;
    const qreal ratio = devicePixelRatioF();
    if (m_pixels.size() != size() * ratio)
        m_pixels = QPixmap(size() * ratio);
    m_pixels.setDevicePixelRatio(ratio);
    m_pixels.fill(Qt::transparent);
    // QLabel's own painting, frame and text, without any background.
    m_rendering = true;
    render(&m_pixels, QPoint(), QRegion(), {});
    m_rendering = false;
    m_look = currentLook();
    m_valid = true;
}

void CachedTextLabel::changeEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::EnabledChange:
    case QEvent::StyleChange:
    case QEvent::ContentsRectChange:
        m_valid = false;
        break;
    default:
        break;
    }
    QLabel::changeEvent(event);
}

void CachedTextLabel::resizeEvent(QResizeEvent *event)
{
    m_valid = false;
    QLabel::resizeEvent(event);
}
