#include "ORVRtfOutputTables_p.h"

#include "QtCompat_p.h"

void ORVRtfOutputFonts::insertFirst(const QFont& font)
{
    const QList<QFont> others = m_fonts;
    m_fonts.clear();
    m_numbers.clear();
    append(font);
    for (const QFont& other : others)
        append(other);
}

void ORVRtfOutputFonts::append(const QFont& font)
{
    const QPair<QString, bool> key(compat::family(font), font.fixedPitch());
    if (!m_numbers.contains(key))
        m_numbers.insert(key, int(m_fonts.size()));
    m_fonts.append(font);
}

/*! Number of the font of \a family and pitch, -1 when it is not there. */
int ORVRtfOutputFonts::find(const QString& family, bool fixedPitch) const
{
    return m_numbers.value(qMakePair(family, fixedPitch), -1);
}

void ORVRtfOutputFonts::appendMissing(const QTextCharFormat& format)
{
    const QString family = compat::fontFamily(format);
    const bool fixedPitch = format.boolProperty(QTextFormat::FontFixedPitch);
    if (family.isEmpty() ? !m_fonts.isEmpty() : find(family, fixedPitch) >= 0)
        return;
    QFont font = compat::font(format);
    if (!family.isEmpty()) {
        // The document's default font may add a pitch, or other families: the format would not find it again.
        compat::setFamily(font, family);
        font.setFixedPitch(fixedPitch);
    }
    append(font);
}

bool ORVRtfOutputFonts::contains(const QFont& font) const
{
    return find(compat::family(font), font.fixedPitch()) >= 0;
}

int ORVRtfOutputFonts::number(const QTextCharFormat& format) const
{
    if (!compat::hasFontFamily(format) && !format.hasProperty(QTextFormat::FontFixedPitch))
        return 0;
    return qMax(0, find(compat::fontFamily(format), format.boolProperty(QTextFormat::FontFixedPitch)));
}

int ORVRtfOutputFonts::number(const QFont& font) const
{
    return qMax(0, find(compat::family(font), font.fixedPitch()));
}

void ORVRtfOutputColors::appendMissing(const QColor& color)
{
    if (!color.isValid())
        return;
    if (m_colors.isEmpty()) {
        append(QColor(Qt::black).rgb());
        append(QColor(Qt::white).rgb());
    }
    if (!m_numbers.contains(color.rgb()))
        append(color.rgb());
}

void ORVRtfOutputColors::append(QRgb color)
{
    m_colors.append(color);
    m_numbers.insert(color, int(m_colors.size()));
}

int ORVRtfOutputColors::number(const QColor& color) const
{
    return m_numbers.value(color.rgb(), 1);
}
