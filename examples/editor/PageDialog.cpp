#include "PageDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPageSize>

namespace {

const double millimetresPerPoint = 25.4 / 72;
// A hundredth of a millimetre is about half a twip, so that lengths of RTF are shown exactly enough.
const int decimals = 2;
// Word processors take paper of up to 22 inches.
const double longestSide = 558.8;

/*! What \a box says, in points: just what it was made with, unless the user has changed it. */
double points(const QDoubleSpinBox* box)
{
    // What it shows is rounded, and within its range.
    const bool isChanged = box->value() != box->property("shown").toDouble();
    return isChanged ? box->value() / millimetresPerPoint : box->property("points").toDouble();
}

} // namespace

PageDialog::PageDialog(const PageSettings& settings, QWidget* parent)
    : QDialog(parent), m_settings(settings),
      m_width(createLength("paperWidth", settings.page.paperSize.width())),
      m_height(createLength("paperHeight", settings.page.paperSize.height())),
      m_left(createLength("leftMargin", settings.page.leftMargin)),
      m_right(createLength("rightMargin", settings.page.rightMargin)),
      m_top(createLength("topMargin", settings.page.topMargin)),
      m_bottom(createLength("bottomMargin", settings.page.bottomMargin)),
      m_header(createMarginText("header", settings.header)),
      m_footer(createMarginText("footer", settings.footer)),
      m_notOnFirstPage(createCheckBox(tr("&None on the first page"), settings.notOnFirstPage)),
      m_countFirstPage(createCheckBox(tr("The first page &counts"), settings.countFirstPage))
{
    setWindowTitle(tr("Page set-up"));
    createLayout(createPapers());
}

QComboBox* PageDialog::createPapers()
{
    QComboBox* papers = new QComboBox(this);
    const QPageSize::PageSizeId ids[] = {QPageSize::A4, QPageSize::A5, QPageSize::Letter, QPageSize::Legal};
    for (const QPageSize::PageSizeId id : ids)
        papers->addItem(QPageSize::name(id), QPageSize(id).size(QPageSize::Millimeter));
    papers->addItem(tr("Other"));
    showPaper(papers);
    connect(papers, QOverload<int>::of(&QComboBox::activated), this, [=] {
        const QSizeF size = papers->currentData().toSizeF();
        if (size.isEmpty())
            return;
        m_width->setValue(size.width());
        m_height->setValue(size.height());
    });
    for (const QDoubleSpinBox* side : {m_width, m_height})
        connect(side, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [=] { showPaper(papers); });
    return papers;
}

/*! Chooses the paper in \a papers that has the size, if one does. */
void PageDialog::showPaper(QComboBox* papers) const
{
    const double tolerance = 0.3; // Sizes come from programs that know them in points or in millimetres.
    int index = papers->count() - 1;
    for (int i = 0; i < papers->count() - 1; ++i) {
        const QSizeF size = papers->itemData(i).toSizeF();
        if (qAbs(size.width() - m_width->value()) < tolerance
            && qAbs(size.height() - m_height->value()) < tolerance)
            index = i;
    }
    papers->setCurrentIndex(index);
}

QDoubleSpinBox* PageDialog::createLength(const char* name, double points)
{
    QDoubleSpinBox* box = new QDoubleSpinBox(this);
    box->setObjectName(QLatin1String(name));
    box->setDecimals(decimals);
    box->setRange(0, longestSide);
    box->setSuffix(tr(" mm"));
    box->setValue(points * millimetresPerPoint);
    box->setProperty("points", points);
    box->setProperty("shown", box->value());
    return box;
}

PageDialog::MarginText PageDialog::createMarginText(const char* name, const ORVTextPage& text)
{
    QLineEdit* edit = new QLineEdit(text.text, this);
    edit->setObjectName(QLatin1String(name));
    QComboBox* alignment = new QComboBox(this);
    alignment->addItem(tr("Left"), int(Qt::AlignLeft));
    alignment->addItem(tr("Centre"), int(Qt::AlignHCenter));
    alignment->addItem(tr("Right"), int(Qt::AlignRight));
    const int current =
        alignment->findData(int(text.option.alignment() & (Qt::AlignHCenter | Qt::AlignRight)));
    alignment->setCurrentIndex(qMax(0, current));
    return {edit, alignment, alignment->currentIndex()};
}

QCheckBox* PageDialog::createCheckBox(const QString& text, bool isChecked)
{
    QCheckBox* box = new QCheckBox(text, this);
    box->setChecked(isChecked);
    return box;
}

void PageDialog::createLayout(QComboBox* papers)
{
    QFormLayout* form = new QFormLayout(this);
    const auto addMarginText = [=](const QString& label, const MarginText& marginText) {
        QHBoxLayout* row = new QHBoxLayout;
        row->addWidget(marginText.text, 1);
        row->addWidget(marginText.alignment);
        QLabel* const name = new QLabel(label, this);
        name->setBuddy(marginText.text);
        form->addRow(name, row);
    };
    form->addRow(tr("&Paper:"), papers);
    form->addRow(tr("&Width:"), m_width);
    form->addRow(tr("&Height:"), m_height);
    form->addRow(tr("&Left margin:"), m_left);
    form->addRow(tr("&Right margin:"), m_right);
    form->addRow(tr("&Top margin:"), m_top);
    form->addRow(tr("&Bottom margin:"), m_bottom);
    addMarginText(tr("H&eader:"), m_header);
    addMarginText(tr("&Footer:"), m_footer);
    QLabel* hint = new QLabel(tr("<$p> is the page number, <$pagecount> the number of pages."), this);
    hint->setTextFormat(Qt::PlainText);
    form->addRow(hint);
    form->addRow(m_notOnFirstPage);
    form->addRow(m_countFirstPage);
    auto buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
}

PageSettings PageDialog::settings() const
{
    const auto apply = [](const MarginText& marginText, ORVTextPage* page) {
        page->text = marginText.text->text();
        if (marginText.alignment->currentIndex() != marginText.shownAlignment)
            page->option.setAlignment(Qt::Alignment(marginText.alignment->currentData().toInt()));
    };
    PageSettings settings = m_settings;
    settings.page.paperSize = QSizeF(points(m_width), points(m_height));
    settings.page.leftMargin = points(m_left);
    settings.page.rightMargin = points(m_right);
    settings.page.topMargin = points(m_top);
    settings.page.bottomMargin = points(m_bottom);
    apply(m_header, &settings.header);
    apply(m_footer, &settings.footer);
    settings.notOnFirstPage = m_notOnFirstPage->isChecked();
    settings.countFirstPage = m_countFirstPage->isChecked();
    return settings;
}
