// The functions of ICU that the platform calls. ICU is loaded by the first of them.
#pragma once

#include "platform/linux/system/lazy_library.h"

#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/ucol.h>
#include <unicode/udat.h>
#include <unicode/udatpg.h>
#include <unicode/uloc.h>
#include <unicode/unorm2.h>
#include <unicode/unum.h>

namespace quorvel {

inline constinit LazyLibrary g_icuCommon("libicuuc.so." U_ICU_VERSION_SHORT);
inline constinit LazyLibrary g_icuLanguages("libicui18n.so." U_ICU_VERSION_SHORT);

QUORVEL_LAZY_FUNCTION(g_icuCommon, UCNV_FROM_U_CALLBACK_STOP);
QUORVEL_LAZY_FUNCTION(g_icuCommon, UCNV_TO_U_CALLBACK_STOP);
QUORVEL_LAZY_FUNCTION(g_icuCommon, UCNV_TO_U_CALLBACK_SUBSTITUTE);
QUORVEL_LAZY_FUNCTION(g_icuCommon, u_charType);
QUORVEL_LAZY_FUNCTION(g_icuCommon, u_tolower);
QUORVEL_LAZY_FUNCTION(g_icuCommon, u_toupper);
QUORVEL_LAZY_FUNCTION(g_icuCommon, ucnv_cbFromUWriteSub);
QUORVEL_LAZY_FUNCTION(g_icuCommon, ucnv_close);
QUORVEL_LAZY_FUNCTION(g_icuCommon, ucnv_fromUnicode);
QUORVEL_LAZY_FUNCTION(g_icuCommon, ucnv_open);
QUORVEL_LAZY_FUNCTION(g_icuCommon, ucnv_resetToUnicode);
QUORVEL_LAZY_FUNCTION(g_icuCommon, ucnv_setFallback);
QUORVEL_LAZY_FUNCTION(g_icuCommon, ucnv_setFromUCallBack);
QUORVEL_LAZY_FUNCTION(g_icuCommon, ucnv_setSubstString);
QUORVEL_LAZY_FUNCTION(g_icuCommon, ucnv_setToUCallBack);
QUORVEL_LAZY_FUNCTION(g_icuCommon, ucnv_toUChars);
QUORVEL_LAZY_FUNCTION(g_icuCommon, ucnv_toUnicode);
QUORVEL_LAZY_FUNCTION(g_icuCommon, uloc_addLikelySubtags);
QUORVEL_LAZY_FUNCTION(g_icuCommon, uloc_getDisplayName);
QUORVEL_LAZY_FUNCTION(g_icuCommon, uloc_getISO3Language);
QUORVEL_LAZY_FUNCTION(g_icuCommon, uloc_getLanguage);
QUORVEL_LAZY_FUNCTION(g_icuCommon, uloc_getScript);
QUORVEL_LAZY_FUNCTION(g_icuCommon, unorm2_getNFDInstance);
QUORVEL_LAZY_FUNCTION(g_icuCommon, unorm2_normalize);

QUORVEL_LAZY_FUNCTION(g_icuLanguages, ucol_close);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, ucol_open);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, ucol_strcoll);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, udat_close);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, udat_countSymbols);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, udat_getSymbols);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, udat_open);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, udat_toPattern);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, udatpg_close);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, udatpg_getBestPattern);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, udatpg_open);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, unum_close);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, unum_getAttribute);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, unum_getSymbol);
QUORVEL_LAZY_FUNCTION(g_icuLanguages, unum_open);

} // namespace quorvel
