#ifndef ORVRTF_TRANSLATIONS_H
#define ORVRTF_TRANSLATIONS_H

#include <QStringList>
#include <QTranslator>

/*! While it exists, messages are in the user's language. */
class Translations {
public:
    /*!
        The languages that the environment asks for, the preferred one first; none where English will do, so
        that nothing need be searched then. To be asked for before the locale is changed.
    */
    static QStringList wantedLanguages();

    /*!
        Loads the messages in the first of \a languages that there are messages in. Needs a QCoreApplication.
    */
    explicit Translations(const QStringList& languages);

private:
    QTranslator m_translator;
};

#endif
