// OxClassLib: the umbrella header. A program that includes it and links
// -lOxClassLib can use the whole library.
#ifndef OXCLASSLIB_H
#define OXCLASSLIB_H

#define OXCLASSLIB_VERSION_TEXT "0.1.0"

#include "Ox_BaseLib.h"

// Foundation
#include "Ox_NamedStr.h"
#include "Ox_ErrorMsg.h"
#include "Ox_Result.h"

// Values
#include "Ox_Currency.h"
#include "Ox_DateTime.h"
#include "Ox_Object.h"
#include "Ox_Variant.h"
#include "Ox_VariantOps.h"

// Dataset and interchange
#include "Ox_Dataset.h"
#include "Ox_Variable.h"
#include "Ox_BinStream.h"

// System services
#include "Ox_Compress.h"
#include "Ox_Digest.h"
#include "Ox_Config.h"
#include "Ox_Path.h"
#include "Ox_File.h"

#endif
