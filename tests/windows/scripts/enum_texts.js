//uses checks.js
// The enumerations' texts for JScript.
var texts = new ActiveXObject("LibTarvoRdpCI.clsEnumPrint");
var start = new ActiveXObject("LibTarvoRdpCI.clsInitLibTarvoRpd");

var shownWarning = "";
var messages = {sWarning: function(text) { shownWarning = text; }};
var nothing = {};
start.sInitializeInternalGlobalClasses(nothing, messages, nothing, nothing, nothing, nothing, nothing,
                                       nothing, nothing, nothing);

check("draft", texts.fEnumPruebaODefinitivaToString(1), "Borrador");
check("text printing", texts.fEnumPrintingModeToString(0), "Impresión Texto (DOS)");
check("its number", texts.fStrPrintingModeToNum("impresión texto (dos)", true), 0);
check("the other's", texts.fStrPrintingModeToNum("impresión gráfica", true), 1);
check("no warning", shownWarning, "");
check("another", texts.fStrPrintingModeToNum("ñandú", true), 0);
check("its warning", shownWarning, "Valor ñandú no existe en tipo enumerativo PrintingMode");
checkError("an object without members", function() { texts.sFillComboBoxWithPrintingMode({}); }, 438,
           "Object doesn't support this property or method: Clear");
finish(8);
