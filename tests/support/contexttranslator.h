#ifndef CONTEXTTRANSLATOR_H
#define CONTEXTTRANSLATOR_H

#include <QtCore/QTranslator>

/*! "Translates" by putting the context in front: "[context] text". */
class ContextTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QStringLiteral("[%1] %2").arg(QString::fromLatin1(context), QString::fromLatin1(text));
    }
};

#endif
