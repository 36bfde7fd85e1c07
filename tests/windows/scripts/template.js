//uses checks.js
// The template classes from JScript, whose arguments are always values.
var start = new ActiveXObject("LibTarvoRdpCI.clsInitLibTarvoRpd");
function service(name) { return new ActiveXObject("LibTarvoCI." + name); }
var message = {
  shown: "",
  sShowMessageWithTitle: function(text, title) { this.shown += title + ": " + text + "\n"; }
};
start.sInitializeInternalGlobalClasses(
    service("clsError"), message, service("clsTexto"), service("clsDefGen"),
    service("clsConvert"), service("clsApi"), service("clsUtilFile"), service("clsUtilDate"),
    service("clsErrorCodesIG"), service("clsUtilMathOperations"));
var channel = new ActiveXObject("LibTarvoRdpCI.clsUtilImp");
channel.SetChrBold("<negra>");
start.sInitializePrintLibrary(channel, service("clsUtReport"));

var line = new ActiveXObject("LibTarvoRdpCI.clsObLineCharacts");
var variable = line.GetSpecialVar();
function extract(text) {
  line.sClrRecord();
  line.SetTextToWrite(text);
  line.sExtractSpecialVar(text);
}

// --- Properties, in the kinds of the language.
extract("Total: {Factura.monto[7],15,DERECHA}");
check("texts", [variable.GetReadText(), variable.GetRecordName(), line.GetField()].join("/"),
      "Factura.monto[7],15,DERECHA/Factura/MONTO");
check("numbers", [variable.GetArrayPosition(), variable.GetLength(), variable.GetPosBegin(),
                  variable.GetSize(), variable.GetAlignmentType()].join(), "7,15,8,26,0");
check("kinds of numbers", typeof variable.GetLength() + " " + typeof variable.GetPosBegin() + " " +
                          typeof variable.GetAlignmentType(), "number number number");
check("truth values", variable.GetAlignmentWasRead() + " " + variable.GetPrintZero(), "true true");
check("the variable of the line", line.GetSpecialVar().GetFieldName(), "MONTO");

// --- Values.
function printed(text, give) {
  extract(text);
  give();
  line.sFormatSpecialVar();
  line.sReplaceVarInTextToWrite();
  return line.GetTextToPrint();
}
check("a text", printed("[{c.nombre,14,DERECHA}]", function() {
  variable.SetContentString("Ñandú & Cía.");
}), "[  Ñandú & Cía.]");
check("a whole number", printed("[{c.monto,10}]", function() {
  variable.SetContentNumeric(1500, false);
}), "[  1.500,00]");
check("another number", printed("[{c.monto,12}]", function() {
  variable.SetContentNumeric(-1234.565, true);
}), "[  (1.234,57)]");
check("a number's text", printed("[{c.monto,6}]", function() {
  variable.SetContentNumeric("12", false);
}), "[ 12,00]");
check("undefined is 0", printed("[{c.monto,6}]", function() {
  variable.SetContentNumeric(undefined, false);
}), "[  0,00]");
check("a truth value", printed("[{c.activo,IIF(\"S\",Sí,No)}]", function() {
  variable.SetContentBoolean(false);
}), "[No]");
check("an enumeration", printed("[{c.estado,IIF(\"A\",Alta,Baja)}]", function() {
  variable.SetContentEnum("A");
}), "[Alta]");
check("a character of an array", printed("[{det.letra[4]}]", function() {
  variable.SetContentArray("SNNS", 4, -1, false, true, -1);
}), "[S]");
check("a conditional variable", printed("[{c.nota,CONDICION}]", function() {
  variable.SetContentString("");
}), "[]");
check("that is empty suppresses its line", line.GetPrintLine(), false);

// --- Texts by reference stay the script's.
var content = "antes";
check("a control word", line.fSpecialVarIsAnyControlChar("negra", content), true);
check("whose code stays behind", content, "antes");
checkNoError("a name with a number", function() {
  variable.sExtractIfHasNumberArrayElement("CANT[9]");
});
check("is read", variable.GetArrayPosition(), 9);

// --- Arrays.
extract("{c.estado,IIF(\"A\",Alta,Baja)}");
var values = new VBArray(variable.GetIifPossibleValues());
check("the values of an IIF", values.toArray().join("/"), "Alta/Baja");
variable.SetIifPossibleValues(variable.GetIifPossibleValues());
check("handed back", new VBArray(variable.GetIifPossibleValues()).toArray().join("/"), "Alta/Baja");
var body = new ActiveXObject("LibTarvoRdpCI.clsBody");
body.SetLinesArray(50, "última");
var lines = new VBArray(body.GetLinesArray()).toArray();
check("the lines of a body", lines.length + " " + lines[0] + " " + lines[50],
      "51 undefined última");
checkError("a line behind the last", function() { body.SetLinesArray(51, ""); }, 9,
           "Subscript out of range");
var helpers = new ActiveXObject("LibTarvoRdpCI.clsLibTarvoRdp");
var rows = helpers.fToStringArray("uno dos tres cuatro", 2, 12);
check("rows of a text", new VBArray(rows).toArray().join("/"), "uno dos tres/ cuatro/");
variable.sClrObject();
variable.SetArrayPosition(2);
variable.SetLength(8);
check("a segment of them", helpers.fExtractShortText(variable, rows, false), "tres");
checkError("an array of JScript is an object",
           function() { helpers.fExtractShortText(variable, ["uno"], false); }, 13,
           "Type mismatch: valShortText\r\n   en clsLibTarvoRdp.fExtractShortText (clsLibTarvoRdp)");

// --- Errors and messages.
checkError("a brace without its other", function() { variable.sExtract("{sin fin"); }, 5,
           "Invalid procedure call or argument\r\n   en clsObSpecialVar.sExtract " +
           "(Lib. Impresión Texto - Ob Special Var)");
checkError("null for a number", function() { variable.SetContentNumeric(null, false); }, 13,
           "Type mismatch: valValue");
checkNoError("an unknown attribute", function() { variable.sExtract("{c.monto,XYZ}"); });
check("is a message", message.shown, "Impresión de Plantilla: No se encontró el tipo de atributo " +
                                     "XYZ en la línea c.monto,XYZ\n");

// --- The library's own callback classes.
var report = new ActiveXObject("LibTarvoRdpCI.clsImplementIDMD");
check("answer nothing", [report.fTranslateSpecialVarMD(line, 12.5), report.fReadFirstRecord(),
                         report.fReadNextRecord(), report.fCanExecuteWriteReport(true, "x"),
                         report.fDetailRecordCount()].join(), "false,false,false,false,0");
finish(31);
