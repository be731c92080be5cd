#ifndef QTTEXTCODECCOMPAT_P_H
#define QTTEXTCODECCOMPAT_P_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QtCore/QStringDecoder>
#else
#include <QtCore/QTextCodec>
#endif

/*! Text encodings: QStringDecoder replaced QTextCodec in Qt 6. */
namespace compat {

/*! Decodes one encoding, each piece of text by itself. */
class TextDecoder {
public:
    /*! \a name is one of ICU or of Qt. */
    explicit TextDecoder(const char* name)
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        : m_decoder(name, QStringDecoder::Flag::Stateless)
#else
        : m_codec(QTextCodec::codecForName(name))
#endif
    {
    }

    /*! Whether Qt knows the encoding. */
    bool isValid() const
    {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        return m_decoder.isValid();
#else
        return m_codec;
#endif
    }

    /*! The text of complete characters. */
    QString decode(const char* bytes, int count)
    {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        return m_decoder.decode(QByteArrayView(bytes, count));
#else
        return m_codec->toUnicode(bytes, count);
#endif
    }

private:
    Q_DISABLE_COPY(TextDecoder)

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QStringDecoder m_decoder;
#else
    QTextCodec* m_codec;
#endif
};

} // namespace compat

#endif
