// The public classes of the companion server, in the order of their numbers.  A class joins the
// server and its type library by its member table and its line here.
#pragma once

#include "frame/services_members.h"
#include "services/all.h"

namespace tarvo {

// The stand-in's registry can be read back: one operation more than the contract has.
template <>
struct Members<LibTarvoCI::clsVersionRegistry> : Members<clsVersionRegistry> {
  static constexpr auto table =
      memberTable(method<&LibTarvoCI::clsVersionRegistry::sRegisterVersion>(
                      "sRegisterVersion", "keeps the version text of a library", "refVersion"),
                  method<&LibTarvoCI::clsVersionRegistry::GetRegisteredVersion>(
                      "GetRegisteredVersion", "the version text that was kept last"));
};

}  // namespace tarvo

namespace LibTarvoCI {

class MessageBoxes;  // the server's own, on Windows only: services/com/message_boxes.h

// A public class: the contract, which is what its member table describes, and the stand-in that a
// client gets when it creates one.  Only a name for the two.
template <class Contract, class StandIn>
struct Offer;

// As a list of classes, it is that of the contracts: what the type library describes.
template <class... Offers>
struct OfferList;
template <class... Contracts, class... StandIns>
struct OfferList<Offer<Contracts, StandIns>...> : tarvo::ClassList<Contracts...> {};

// A line for each class.
// clang-format off
using PublicClasses = OfferList<
    Offer<tarvo::clsError, clsError>,
    Offer<tarvo::clsMessage, MessageBoxes>,
    Offer<tarvo::clsTexto, clsTexto>,
    Offer<tarvo::clsConvert, clsConvert>,
    Offer<tarvo::clsUtilDate, clsUtilDate>,
    Offer<tarvo::clsUtilMathOperations, clsUtilMathOperations>,
    Offer<tarvo::clsUtilFile, clsUtilFile>,
    Offer<tarvo::clsApi, clsApi>,
    Offer<tarvo::clsUtReport, clsUtReport>,
    Offer<clsVersionRegistry, clsVersionRegistry>,
    Offer<tarvo::clsDefGen, clsDefGen>,
    Offer<tarvo::clsErrorCodesIG, clsErrorCodesIG>>;
// clang-format on

}  // namespace LibTarvoCI
