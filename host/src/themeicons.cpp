// Built into the host library and registered from here, not loaded from disk.
#define QT_STATICPLUGIN

#include "themeicons.h"

#include <QApplication>
#include <QIconEnginePlugin>
#include <QImageReader>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace cm {

namespace {

// What stands in for a missing state, in the order Qt's own engine tries.
QVector<QPair<QIcon::Mode, QIcon::State>> fallbacks(QIcon::Mode mode, QIcon::State state)
{
    const QIcon::State opposite = state == QIcon::On ? QIcon::Off : QIcon::On;
    if (mode == QIcon::Disabled || mode == QIcon::Selected) {
        const QIcon::Mode oppositeMode = mode == QIcon::Disabled ? QIcon::Selected : QIcon::Disabled;
        return {{mode, state},         {QIcon::Normal, state},    {QIcon::Active, state},
                {mode, opposite},      {QIcon::Normal, opposite}, {QIcon::Active, opposite},
                {oppositeMode, state}, {oppositeMode, opposite}};
    }
    const QIcon::Mode oppositeMode = mode == QIcon::Normal ? QIcon::Active : QIcon::Normal;
    return {{mode, state},
            {oppositeMode, state},
            {mode, opposite},
            {oppositeMode, opposite},
            {QIcon::Disabled, state},
            {QIcon::Selected, state},
            {QIcon::Disabled, opposite},
            {QIcon::Selected, opposite}};
}

} // namespace

void ThemeIconEngine::addFile(const QString &fileName, const QSize &, QIcon::Mode mode, QIcon::State state)
{
    if (fileName.isEmpty())
        return;
    if (Image *image = find(mode, state))
        *image = {fileName, mode, state, {}, {}};
    else
        m_images.append({fileName, mode, state, {}, {}});
    m_derived.clear();
}

void ThemeIconEngine::addPixmap(const QPixmap &pixmap, QIcon::Mode mode, QIcon::State state)
{
    if (pixmap.isNull())
        return;
    if (Image *image = find(mode, state))
        *image = {QString(), mode, state, pixmap, pixmap.size()};
    else
        m_images.append({QString(), mode, state, pixmap, pixmap.size()});
    m_derived.clear();
}

ThemeIconEngine::Image *ThemeIconEngine::find(QIcon::Mode mode, QIcon::State state)
{
    for (Image &image : m_images) {
        if (image.mode == mode && image.state == state)
            return &image;
    }
    return nullptr;
}

ThemeIconEngine::Image *ThemeIconEngine::bestMatch(QIcon::Mode mode, QIcon::State state)
{
    for (const auto &candidate : fallbacks(mode, state)) {
        if (Image *image = find(candidate.first, candidate.second))
            return image;
    }
    return nullptr;
}

// Read through the pixmap cache by name: every icon of one file shares one copy.
const QPixmap &ThemeIconEngine::imageOf(Image &image)
{
    if (image.pixmap.isNull() && !image.fileName.isEmpty()) {
        image.pixmap = QPixmap(image.fileName);
        image.size = image.pixmap.size();
    }
    return image.pixmap;
}

QSize ThemeIconEngine::sizeOf(const Image &image) const
{
    if (!image.size.isValid() && !image.fileName.isEmpty())
        image.size = QImageReader(image.fileName).size();
    return image.size;
}

QSize ThemeIconEngine::actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    Image *image = bestMatch(mode, state);
    if (!image)
        return QSize();
    const QSize natural = sizeOf(*image);
    if (natural.width() <= size.width() && natural.height() <= size.height())
        return natural;
    return natural.scaled(size, Qt::KeepAspectRatio);
}

QPixmap ThemeIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    Image *image = bestMatch(mode, state);
    if (!image || imageOf(*image).isNull())
        return QPixmap();
    const QSize actual = actualSize(size, mode, state);
    const bool generated = image->mode != mode && mode != QIcon::Normal;
    if (!generated && actual == image->pixmap.size())
        return image->pixmap;

    for (const Derived &derived : qAsConst(m_derived)) {
        if (derived.mode == mode && derived.state == state && derived.size == actual)
            return derived.pixmap;
    }
    QPixmap result = image->pixmap;
    if (generated) {
        QStyleOption option;
        option.palette = QGuiApplication::palette();
        result = QApplication::style()->generatedIconPixmap(mode, result, &option);
    }
    if (result.size() != actual)
        result = result.scaled(actual, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    m_derived.append({mode, state, actual, result});
    return result;
}

void ThemeIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state)
{
    const QPixmap drawn = pixmap(rect.size() * painter->device()->devicePixelRatioF(), mode, state);
    painter->drawPixmap(rect, drawn);
}

QList<QSize> ThemeIconEngine::availableSizes(QIcon::Mode mode, QIcon::State state) const
{
    QList<QSize> sizes;
    for (const Image &image : m_images) {
        if (image.mode == mode && image.state == state)
            sizes.append(sizeOf(image));
    }
    return sizes;
}

QIconEngine *ThemeIconEngine::clone() const
{
    return new ThemeIconEngine(*this);
}

QString ThemeIconEngine::key() const
{
    return QStringLiteral("ThemeIconEngine");
}

void ThemeIconEngine::virtual_hook(int id, void *data)
{
    if (id == QIconEngine::IsNullHook)
        *static_cast<bool *>(data) = m_images.isEmpty();
    else
        QIconEngine::virtual_hook(id, data);
}

} // namespace cm

// Offered to QIcon for "png" files; other files keep Qt's own engine.
class ThemeIconPlugin : public QIconEnginePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QIconEngineFactoryInterface" FILE "themeicons.json")
public:
    QIconEngine *create(const QString &fileName) override
    {
        return fileName.startsWith(QLatin1String(":/Resource/")) ? new cm::ThemeIconEngine : nullptr;
    }
};

#include "themeicons.moc"

Q_IMPORT_PLUGIN(ThemeIconPlugin)
