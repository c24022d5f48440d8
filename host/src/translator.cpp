#include "translator.h"

#include "hostlog.h"

#include <QFile>
#include <QTranslator>

#include <memory>

static void initCatalogueResources()
{
    Q_INIT_RESOURCE(host_i18n);
}

namespace {

struct Catalogue
{
    Catalogue()
    {
        initCatalogueResources();
        load(QStringLiteral("en"));
    }

    bool load(const QString &lang)
    {
        // A failed QTranslator::load() empties the translator, so load aside.
        auto next = std::make_unique<QTranslator>();
        const QString file = QStringLiteral(":/i18n/host_%1.qm").arg(lang);
        if (!QFile::exists(file) || !next->load(file))
            return false;
        translator = std::move(next);
        language = lang;
        return true;
    }

    std::unique_ptr<QTranslator> translator = std::make_unique<QTranslator>();
    QString language;
};

Catalogue &catalogue()
{
    static Catalogue instance;
    return instance;
}

} // namespace

QByteArray Translator::messageId(int id)
{
    return QByteArray("txt_") + QByteArray::number(id).rightJustified(3, '0');
}

QString Translator::translate(int id)
{
    QString text = catalogue().translator->translate(nullptr, messageId(id).constData());
    if (text.isEmpty())
        HOST_WAR() << id << "has no text in catalogue" << catalogue().language;
    return text;
}

bool Translator::setLanguage(const QString &language)
{
    if (catalogue().load(language))
        return true;
    HOST_WAR() << language << "has no catalogue, keeping" << catalogue().language;
    return false;
}

QString Translator::language()
{
    return catalogue().language;
}
