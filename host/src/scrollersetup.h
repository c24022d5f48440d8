#pragma once

#include <QScroller>
#include <QScrollerProperties>
#include <QWidget>

namespace cm {

// The head unit's kinetic scrolling: no overshoot on the given axes, and no
// press delay, so that buttons beneath see a press at once (long-press timers).
inline QScroller *touchScroller(QWidget *viewport, bool horizontalOnly)
{
    QScroller *scroller = QScroller::scroller(viewport);
    QScrollerProperties properties = scroller->scrollerProperties();
    const QVariant off = QVariant::fromValue(QScrollerProperties::OvershootAlwaysOff);
    properties.setScrollMetric(QScrollerProperties::HorizontalOvershootPolicy, off);
    if (horizontalOnly)
        properties.setScrollMetric(QScrollerProperties::VerticalOvershootPolicy, off);
    properties.setScrollMetric(QScrollerProperties::MousePressEventDelay, 0);
    scroller->setScrollerProperties(properties);
    return scroller;
}

} // namespace cm
