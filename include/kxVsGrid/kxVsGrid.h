// Everything of the core in one include; the Qt widget is in kxVsGrid/qt/kxGridWidget.h.
#pragma once

#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Enumerations.h"
#include "kxVsGrid/Event.h"
#include "kxVsGrid/Form.h"
#include "kxVsGrid/Frame.h"
#include "kxVsGrid/HelpExchange.h"
#include "kxVsGrid/HelpTable.h"
#include "kxVsGrid/Platform.h"
#include "kxVsGrid/PropertyBag.h"
#include "kxVsGrid/Variant.h"
#include "kxVsGrid/VsNode.h"
#include "kxVsGrid/cResize.h"
#include "kxVsGrid/cVsControl.h"
#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxGrid.h"
#include "kxVsGrid/mbasTxt.h"
