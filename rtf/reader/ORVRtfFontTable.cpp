#include "ORVRtfFontTable_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVTextUtil.h"
#include "QtFontCompat_p.h"

#include <QtGui/QFontInfo>
#include <QtGui/QTextCharFormat>

namespace {

QString cleanedName(const QString& name)
{
    QString cleaned = name.trimmed();
    if (cleaned.endsWith(QLatin1Char(';')))
        cleaned.chop(1);
    return cleaned;
}

} // namespace

const ORVRtfFontTable::Font* ORVRtfFontTable::find(int number) const
{
    const QHash<int, Font>::const_iterator it = m_fonts.constFind(number);
    return it == m_fonts.constEnd() ? nullptr : &*it;
}

void ORVRtfFontTable::setCodePage(int number, int codePage)
{
    if (m_codePages.size() < ORVRtfLimits::fonts || m_codePages.contains(number))
        m_codePages.insert(number, codePage);
}

void ORVRtfFontTable::define(int number, const QString& name, const QTextCharFormat& format)
{
    const QFont::StyleHint hint = m_styleHint;
    m_styleHint = QFont::AnyStyle;
    const QString alternative = cleanedName(m_alternative);
    m_alternative.clear();

    const QString family = cleanedName(name);
    if (find(number) ? family.trimmed().isEmpty() : m_fonts.size() >= ORVRtfLimits::fonts)
        return;
    QFont font = compat::font(format);
    compat::setFamily(font, family);
    font.setStyleHint(hint, QFont::PreferDefault);
    compat::setWeight(font, QFont::Normal);
    bool isInstalled = false;
    if (m_matchedFonts < ORVRtfLimits::matchedFonts) {
        ++m_matchedFonts;
        isInstalled = matchInstalled(font, hint);
    }
    if (m_keepsNames && !isInstalled && !family.isEmpty())
        compat::setFamilies(font, families(family, alternative, compat::family(font)));
    m_fonts.insert(number, {font, ++m_definedFonts});
}

/*! Makes \a font one of the installed family that stands best for its own. True if that is its own. */
bool ORVRtfFontTable::matchInstalled(QFont& font, QFont::StyleHint hint)
{
    QString family = compat::family(font);
    const QString best = ORVTextUtil::findBestFontFamily(family);
    const bool isInstalled = best.compare(family, Qt::CaseInsensitive) == 0;
    if (!best.isEmpty())
        family = best;
    compat::setFamily(font, family);
    if (compat::hasGui()) {
        const QFontInfo info(font);
        family = familyToUse(family, info.exactMatch(), info.family(), hint);
        compat::setFamily(font, family);
    }
    compat::setWeight(font, ORVTextUtil::defaultFontWeight(family, QFont::Normal));
    return isInstalled;
}

/*! A font that is not installed, and those that can stand for it. */
QStringList ORVRtfFontTable::families(const QString& name, const QString& alternative,
                                      const QString& installed)
{
    QStringList families(name);
    for (const QString& other : {alternative, installed}) {
        if (!other.isEmpty() && !families.contains(other, Qt::CaseInsensitive))
            families.append(other);
    }
    return families;
}

QString ORVRtfFontTable::familyToUse(const QString& family, bool exactMatch, const QString& matchedFamily,
                                     QFont::StyleHint hint)
{
    if (exactMatch || !matchedFamily.startsWith(QLatin1String("MS Shell Dlg")))
        return family;
    switch (hint) {
    case QFont::SansSerif:
    case QFont::System:
    case QFont::AnyStyle: return QLatin1String("Arial");
    case QFont::Serif: return QLatin1String("Times New Roman");
    case QFont::TypeWriter:
    case QFont::Monospace: return QLatin1String("Courier New");
    case QFont::Decorative:
    case QFont::Cursive:
    case QFont::Fantasy: return QLatin1String("Segoe Script");
    }
    return family;
}
