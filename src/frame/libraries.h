// The identities of the two type libraries: this one, and the core library's, whose interfaces the
// services have.
//
// The numbers of classes and the first identifiers never change: compiled clients hold them.
#pragma once

#include "frame/class_info.h"
#include "frame/version.h"

namespace tarvo {

inline constexpr LibraryInfo kPrintLibrary{
    "LibTarvoRdpCI",
    "LibTarvoRdpCI_2402",
    "LibTarvoRdpCI: reports on line printers",
    {0x6EBE5848, 0x9189, 0x4448, {0x87, 0x33, 0x93, 0x2D, 0x5F, 0x4D, 0xAD, 0x12}},
    kVersionMajor,
    kVersionMinor};

inline constexpr LibraryInfo kCoreLibrary{
    "LibTarvoCI",
    "LibTarvoCI_2402",
    "LibTarvoCI: stand-ins of the core services",
    {0x0B161FA4, 0xC610, 0x4349, {0xA8, 0x1B, 0xE7, 0x59, 0xD1, 0x73, 0x2A, 0xA2}},
    kVersionMajor,
    kVersionMinor};

}  // namespace tarvo
