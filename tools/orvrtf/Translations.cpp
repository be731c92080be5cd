#include "Translations.h"

#include <QCoreApplication>

namespace {

/*! The name of the locale for messages, as the C library chooses it. */
QByteArray messageLocale()
{
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        QByteArray name = qgetenv(variable);
        if (!name.isEmpty())
            return name;
    }
    return QByteArray();
}

/*! The language and country of a \a locale: "de_DE" of "de_DE.UTF-8@euro". */
QByteArray withoutEncoding(const QByteArray& locale)
{
    int length = 0;
    while (length < locale.size() && locale.at(length) != '.' && locale.at(length) != '@')
        ++length;
    return locale.left(length);
}

/*! Whether the messages as they stand in the source are in this language. */
bool isEnglish(const QByteArray& language)
{
    return language == "en" || language.startsWith("en_") || language == "C" || language == "POSIX";
}

} // namespace

QStringList Translations::wantedLanguages()
{
    QStringList languages;
    const QByteArray locale = withoutEncoding(messageLocale());
    // The "C" locale is for programs that read messages: LANGUAGE does not count there.
    if (locale.isEmpty() || locale == "C" || locale == "POSIX")
        return languages;
    const QByteArray preferred = qgetenv("LANGUAGE");
    for (const QByteArray& name : (preferred.isEmpty() ? locale : preferred).split(':')) {
        const QByteArray language = withoutEncoding(name);
        if (isEnglish(language))
            break;
        if (!language.isEmpty())
            languages.append(QString::fromLocal8Bit(language));
    }
    return languages;
}

Translations::Translations(const QStringList& languages)
{
    for (const QString& language : languages) {
        const QString folder =
            QCoreApplication::applicationDirPath() + QLatin1String("/" ORVRTF_TRANSLATIONS);
        if (m_translator.load(QLatin1String("orvrtf_") + language, folder)) {
            QCoreApplication::installTranslator(&m_translator);
            return;
        }
    }
}
