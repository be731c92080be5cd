#ifndef ORVHTMLDECLARATIONS_P_H
#define ORVHTMLDECLARATIONS_P_H

#include <QtCore/QByteArray>

#include <array>

class ORVTextBorder;
class QColor;
class QString;

/*! Declarations of CSS, one for each property at most, in a fixed order. An empty value is the initial one. */
class ORVHtmlDeclarations {
public:
    /*! Properties in the order in which they are written. */
    enum Property {
        FontFamily,
        FontSize,
        FontWeight,
        FontStyle,
        FontStretch,
        FontVariant,
        TextTransform,
        LetterSpacing,
        Color,
        BackgroundColor,
        TextDecoration,
        VerticalAlign,
        TextAlign,
        TextIndent,
        LineHeight,
        WhiteSpace,
        Width,
        Margin,
        NeighborMargin, //!< The upper margin behind a neighbour of the same style: a rule of its own, not part of css().
        Padding,
        Border,
        BorderTop,
        BorderRight,
        BorderBottom,
        BorderLeft,
        BorderCollapse,
        BorderSpacing,
        ListStyleType,
        BreakBefore,
        BreakAfter,
        PropertyCount
    };

    /*! The value of \a property; empty for the initial one. */
    const QByteArray& value(Property property) const { return m_values[property]; }
    /*! Sets the value of \a property. */
    void set(Property property, const QByteArray& value) { m_values[property] = value; }
    /*! Takes those values over from \a other that are not the initial ones. */
    void merge(const ORVHtmlDeclarations& other);
    /*! Whether all values are the initial ones. */
    bool isEmpty() const;
    /*! Those that make up the structure of a document. */
    ORVHtmlDeclarations structure() const;

    /*! "name: value; name: value", where this differs from \a base. */
    QByteArray css(const ORVHtmlDeclarations& base = ORVHtmlDeclarations()) const;

    /*! The value of what is automatic, in an element within one that states another value. */
    static QByteArray automatic(Property property);
    /*! \a value in \a unit, rounded to hundredths. */
    static QByteArray length(double value, const char* unit = "pt");
    /*! "top right bottom left" in points, as short as CSS allows; empty when all are 0. */
    static QByteArray sides(double top, double right, double bottom, double left);
    static QByteArray color(const QColor& color);
    /*! \a border, whose width is in points; empty for no line. */
    static QByteArray border(const ORVTextBorder& border);
    /*! \a text as a string of CSS. */
    static QByteArray string(const QString& text);

private:
    std::array<QByteArray, PropertyCount> m_values;
};

#endif
