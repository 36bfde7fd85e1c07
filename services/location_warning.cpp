#include "services/location_warning.h"

namespace LibTarvoCI {
namespace {

TextView folderKind(std::int16_t locationCode) {
  if (locationCode == 1) return u"una carpeta de prueba";
  if (locationCode == 2) return u"una carpeta de respaldo";
  return u"una carpeta no habitual";
}

}  // namespace

Text locationWarning(TextView projectTitle, std::int16_t locationCode) {
  Text warning = u"El componente ";
  return warning.append(projectTitle)
      .append(u" se está ejecutando desde ")
      .append(folderKind(locationCode))
      .append(u". ¿Desea continuar?");
}

}  // namespace LibTarvoCI
