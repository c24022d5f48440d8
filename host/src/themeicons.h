#pragma once

#include <QIconEngine>
#include <QPixmap>
#include <QVector>

namespace cm {

// Icons of the theme's images (":/Resource/..."), as the forms set them on
// buttons. Qt's own engine decodes every image of an icon when it is added,
// so each screen built decodes all its states again, and keeps a copy of each
// drawn pixmap in the global pixmap cache under a key of its own. This one
// reads an image when it is first drawn, from the shared pixmap cache by file
// name, and keeps what it derives (scaled or generated states) to itself.
class ThemeIconEngine : public QIconEngine
{
public:
    void addFile(const QString &fileName, const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    void addPixmap(const QPixmap &pixmap, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) const override;
    QIconEngine *clone() const override;
    QString key() const override;
    void virtual_hook(int id, void *data) override;

private:
    struct Image
    {
        QString fileName;
        QIcon::Mode mode;
        QIcon::State state;
        QPixmap pixmap;     // read on first use
        mutable QSize size; // from the file's header until read
    };
    struct Derived
    {
        QIcon::Mode mode;
        QIcon::State state;
        QSize size;
        QPixmap pixmap;
    };

    Image *find(QIcon::Mode mode, QIcon::State state);
    Image *bestMatch(QIcon::Mode mode, QIcon::State state);
    const QPixmap &imageOf(Image &image);
    QSize sizeOf(const Image &image) const;

    QVector<Image> m_images;
    QVector<Derived> m_derived;
};

} // namespace cm
