#ifndef ORVHTMLTEXTSTYLES_P_H
#define ORVHTMLTEXTSTYLES_P_H

#include "ORVHtmlStyleSheet_p.h"

#include <QtCore/QHash>
#include <QtCore/QVector>
#include <QtGui/QTextCharFormat>

/*! An inline element. */
struct ORVHtmlInlineElement {
    explicit ORVHtmlInlineElement(const char* name = nullptr) : tag(name) { }

    /*! Its tag: a literal. */
    const char* tag;
    /*! Its attributes but for the class, with a blank in front. */
    QByteArray attributes;
    /*! Number of its style; -1 for none. */
    int style = -1;

    bool operator==(const ORVHtmlInlineElement& other) const
    {
        return tag == other.tag && style == other.style && attributes == other.attributes;
    }
};

/*!
    The formats of text as HTML: what the text of a paragraph has in common is stated by the paragraph, and what
    differs from that by elements within it.
*/
class ORVHtmlTextStyles {
public:
    /*!
        The styles are those of \a sheet. Families and sizes that formats do not state are those of \a defaultFormat; text in
        \a language does not state it.
    */
    ORVHtmlTextStyles(ORVHtmlStyleSheet* sheet, const QTextCharFormat& defaultFormat,
                      const QString& language);

    /*! Whether blanks of \a format look like those without a format: they are not underlined, for instance. */
    static bool hasPlainBlanks(const QTextCharFormat& format);
    /*! What a paragraph states for text of \a format; the weight only where \a isHeading. */
    ORVHtmlDeclarations base(const QTextCharFormat& format, bool isHeading) const;

    /*!
        The elements around text of \a format in a paragraph that states \a base: the outer ones first. Uses of their
        styles are not counted yet.
    */
    QVector<ORVHtmlInlineElement> elements(const QTextCharFormat& format,
                                           const ORVHtmlDeclarations& base) const;

private:
    using Elements = QVector<ORVHtmlInlineElement>;

    void addLink(Elements* elements, const QTextCharFormat& format, ORVHtmlDeclarations* own) const;
    void addSpan(Elements* elements, const QTextCharFormat& format, const ORVHtmlDeclarations& own) const;
    ORVHtmlDeclarations font(const QTextCharFormat& format) const;

    ORVHtmlStyleSheet* m_sheet;
    QTextCharFormat m_default;
    QString m_language;
};

#endif
