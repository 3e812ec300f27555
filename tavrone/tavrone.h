#pragma once

// Everything that hosts and generated code use.

#include "tavrone/core/Class.h"
#include "tavrone/core/Conversion.h"
#include "tavrone/core/DesignerTypes.h"
#include "tavrone/core/Exceptions.h"
#include "tavrone/core/NumberConversion.h"
#include "tavrone/core/Object.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/core/Version.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/core/tvstring.h"
#include "tavrone/core/tvstringbuffer.h"
#include "tavrone/dataobject/DataObjectSection.h"
