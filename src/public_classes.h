// The public classes of the library, in the order of their numbers.  A class joins the server, the
// type library and the reference by its member table and its line here.
#pragma once

#include "frame/clsImplementIDMD_members.h"
#include "frame/clsImplementIDTraduc_members.h"
#include "frame/clsInitLibTarvoRpd_members.h"
#include "frame/enums_members.h"
#include "graphic/clsARObRep_members.h"
#include "printer/clsUtilImp_members.h"
#include "reports/clsBody_members.h"
#include "reports/clsObRepMasterDetail_members.h"
#include "reports/clsObRepPlanilla_members.h"
#include "template/clsObLineCharacts_members.h"
#include "template/clsObSpecialVar_members.h"
#include "ui/clsEnumPrint_members.h"
#include "ui/clsLibTarvoRdp_members.h"

namespace tarvo {

using PublicClasses = ClassList<clsInitLibTarvoRpd, clsUtilImp, clsObSpecialVar, clsObLineCharacts,
                                clsImplementIDTraduc, clsImplementIDMD, clsBody, clsLibTarvoRdp,
                                clsObRepPlanilla, clsObRepMasterDetail, clsARObRep, clsEnumPrint>;

}  // namespace tarvo
