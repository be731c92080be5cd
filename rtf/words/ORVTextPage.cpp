#include "ORVTextPage.h"

namespace {

// Registered when the library is loaded, so that a document property can hold a page.
const int registeredTypeId = qRegisterMetaType<ORVTextPage>("ORVTextPage");

} // namespace

ORVTextPage::ORVTextPage()
{
    Q_UNUSED(registeredTypeId)
}

ORVTextPage::~ORVTextPage() { }
