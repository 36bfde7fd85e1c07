// What the generated headers include for the prelude's types: the platform's own definitions.
#pragma once

#include <windows.h>
// windows.h must come first.
#include <oaidl.h>
#include <ocidl.h>
