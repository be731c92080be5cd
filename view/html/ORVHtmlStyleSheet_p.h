#ifndef ORVHTMLSTYLESHEET_P_H
#define ORVHTMLSTYLESHEET_P_H

#include "ORVHtmlDeclarations_p.h"

#include <QtCore/QHash>
#include <QtCore/QVector>

class ORVHtmlOutput;

/*!
    The styles that a document uses. First each use is counted; then the most frequent style of each element becomes
    that of the element itself, and each of the others a class.
*/
class ORVHtmlStyleSheet {
public:
    /*! The elements that have styles. */
    enum Element {
        Paragraph,
        Heading1,
        Heading2,
        Heading3,
        Heading4,
        Heading5,
        Heading6,
        Rule,
        BulletList,
        NumberedList,
        Item,
        Table,
        Cell,
        HeadCell,
        Link,
        Code,
        Text, //!< A run of text, which has a class in any case.
        ElementCount
    };

    /*! How much of the formats is written. */
    enum Extent {
        Everything, //!< All formats.
        Structure, //!< Those that make up the structure of the document.
        Nothing //!< None.
    };

    explicit ORVHtmlStyleSheet(Extent extent) : m_extent(extent) { }

    /*! Whether any formats are written. */
    bool hasStyles() const { return m_extent != Nothing; }
    /*! Those of \a declarations that are written. */
    ORVHtmlDeclarations kept(const ORVHtmlDeclarations& declarations) const;
    /*! The number of the style that \a declarations are for \a element. Styles that nothing uses are not written. */
    int number(Element element, const ORVHtmlDeclarations& declarations);
    /*! Counts a use of a style. */
    void use(int style) { ++m_styles[style].uses; }
    /*! Counts a use of \a declarations by \a element. Returns the number of the style. */
    int use(Element element, const ORVHtmlDeclarations& declarations);
    /*! Makes the most frequent styles those of their elements. */
    void decide();
    /*! The class of a style as an attribute with a blank in front; empty for that of the element. */
    const QByteArray& attribute(int style) const { return m_styles.at(style).attribute; }
    /*! Writes the rules. */
    void write(ORVHtmlOutput& output) const;

    /*! The tag of \a element. */
    static const char* tag(Element element);

private:
    struct Style {
        Element element = Paragraph;
        ORVHtmlDeclarations declarations;
        int uses = 0;
        QByteArray className;
        QByteArray attribute;
    };

    static bool isBetterDefault(const Style& style, const Style& best);
    static void writeRule(ORVHtmlOutput& output, const QByteArray& selector, const QByteArray& css);

    static void writeNeighborRule(ORVHtmlOutput& output, const QByteArray& selector,
                                  const ORVHtmlDeclarations& declarations);

    Extent m_extent;
    QVector<Style> m_styles;
    QHash<QByteArray, int> m_numbers;
    // The style of each element, -1 for an element that is not used.
    QVector<int> m_defaults = QVector<int>(ElementCount, -1);
};

#endif
