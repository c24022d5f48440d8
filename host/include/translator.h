#pragma once

#include <QString>

// Texts by id from the host's catalogue (Qt Linguist, id-based). A language is
// a compiled catalogue ":/i18n/host_<language>.qm"; English is loaded first.
class Translator
{
public:
    static QString translate(int id);
    // False (and the previous language kept) when there is no such catalogue.
    static bool setLanguage(const QString &language);
    static QString language();
    // The message id that carries text `id` in the catalogue.
    static QByteArray messageId(int id);
};
