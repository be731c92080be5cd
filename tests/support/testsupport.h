#ifndef TESTSUPPORT_H
#define TESTSUPPORT_H

/*! What every test file begins with, and what the precompiled header has. */

#include "ORVRtfProperties.h"
#include "ORVTextFormat.h"
#include "ORVTextListFormat.h"
#include "ORVTextRtf.h"
#include "contexttranslator.h"
#include "literals.h"
#include "registry.h"
#include "rows.h"
#include "rtfstory.h"
#include "rtftesthelpers.h"
#include "rtfwritinghelpers.h"
#include "strippinghelpers.h"
#include "structurehelpers.h"
#include "tabletesthelpers.h"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QClipboard>
#include <QtGui/QDesktopServices>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontInfo>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtGui/QPen>
#include <QtGui/QPixmap>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>
#include <QtGui/QTextLayout>
#include <QtGui/QTextList>
#include <QtGui/QTextTable>
#include <QtTest/QtTest>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#endif
