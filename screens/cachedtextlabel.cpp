#include "cachedtextlabel.h"

#include <QPaintEvent>
#include <QPainter>

CachedTextLabel::Look CachedTextLabel::currentLook() const
{
    return Look{text(), alignment(), indent(), margin()};
}

void CachedTextLabel::paintEvent(QPaintEvent *event)
{
    // Rich text and pictures are drawn as QLabel draws them, every time.
    if (m_rendering || textFormat() == Qt::RichText || text().isEmpty() || !pixmap(Qt::ReturnByValue).isNull()) {
        QLabel::paintEvent(event);
        return;
    }
    const Look look = currentLook();
    if (!m_valid || !(look == m_look)) {
        const qreal ratio = devicePixelRatioF();
        if (m_pixels.size() != size() * ratio)
            m_pixels = QPixmap(size() * ratio);
        m_pixels.setDevicePixelRatio(ratio);
        m_pixels.fill(Qt::transparent);
        // QLabel's own painting, into the cache: the frame and the text, no background.
        m_rendering = true;
        render(&m_pixels, QPoint(), QRegion(), {});
        m_rendering = false;
        m_look = look;
        m_valid = true;
    }
    QPainter painter(this);
    painter.drawPixmap(event->rect(), m_pixels, QRectF(QPointF(event->rect().topLeft()) * m_pixels.devicePixelRatio(),
                                                        QSizeF(event->rect().size()) * m_pixels.devicePixelRatio()));
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
