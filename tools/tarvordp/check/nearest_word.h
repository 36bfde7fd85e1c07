// Which known word was probably meant.
//
// Words are compared in capitals.  All are asked for in the form in which a template has them.
#pragma once

#include <cstddef>

#include "frame/text.h"

namespace tarvordp {

// How many letters have to be put in, left out, changed or exchanged with their neighbour to make
// one word of the other.
std::size_t editDistance(tarvo::TextView a, tarvo::TextView b);

// Each gives an empty text when nothing is near.

// For an attribute that nobody knows: "DERECHA", "PATRONSEPARADOR=".
tarvo::Text nearestAttribute(tarvo::TextView word);

// For a field without a record part that may be a field of the client's after all, so only what is
// very near counts: "NEGRA".  Empty too for what is a control word.
tarvo::Text nearestControlWord(tarvo::TextView field);
tarvo::Text nearestLibraryVariable(tarvo::TextView field);

// For the name of a constant line: "NMAXLINPAGINA", "MEDIACARTA".  Empty too for the name itself.
tarvo::Text nearestConstant(tarvo::TextView name);

// For what stands between braces, which is no marker as it is: "{CUERPO=n}", "{FINCUERPO}",
// "{UNINSERTOCUERPO}".
tarvo::Text nearestMarker(tarvo::TextView inside);

}  // namespace tarvordp
