#include "ORVRtfOutputFonts_p.h"

#include "ORVRounding_p.h"
#include "QtFontCompat_p.h"

#include <QtGui/QFontInfo>
#include <QtGui/QTextCharFormat>

#include <limits>

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
        // The document's default font may contribute a pitch or other families. The format would not match
        // them.
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

int ORVRtfOutputFonts::halfPoints(const QFont& font)
{
    int points = font.pointSize();
    if (points <= 0 && compat::hasGui())
        points = QFontInfo(font).pointSize();
    const double pointsPerPixel = 0.75;
    if (points <= 0)
        points = qMax(1, ORVRounding::halfAway(font.pixelSize() * pointsPerPixel));
    return 2 * qMin(points, std::numeric_limits<int>::max() / 2);
}
