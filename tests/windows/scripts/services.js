//uses checks.js
// Objects of a JScript program as services.  Argument: as services.vbs has it.
var files = WScript.Arguments(1);
var channel = new ActiveXObject("LibTarvoRdpCI.clsUtilImp");
var start = new ActiveXObject("LibTarvoRdpCI.clsInitLibTarvoRpd");
var companion = {
  texto: new ActiveXObject("LibTarvoCI.clsTexto"),
  convert: new ActiveXObject("LibTarvoCI.clsConvert"),
  other: new ActiveXObject("LibTarvoCI.clsDefGen")
};

// The services that a test does not name are objects that offer nothing.
function handOver(services) {
  var nothing = {};
  start.sInitializeInternalGlobalClasses(
      services.error || nothing, services.message || nothing, services.texto || companion.texto,
      companion.other, services.convert || companion.convert, nothing, nothing, nothing, nothing,
      nothing);
}

// A constructor whose prototype has the operations; their names differ in case from the contract's.
function RecordingError() { this.trail = ""; }
RecordingError.prototype.FDESCRIBEERROR = function(
    valDescription, valClassName, valProcedureName, valModuleDescription, valKind, valHelpContext,
    valHelpFile, valLastDllError, valReserved) {
  this.trail += [valClassName, valProcedureName, valModuleDescription, shown(valKind),
                 shown(valHelpContext), shown(valHelpFile), shown(valReserved),
                 arguments.length].join("|") + "\n";
  return valDescription + " < " + valProcedureName;
};

function RecordingMessage() { this.calls = ""; }
RecordingMessage.prototype = {
  sshowmessage: function(refText) {
    this.calls += shown(refText) + "\n";
    refText = 3;  // its own variable alone
  }
};

var error = new RecordingError();
var message = new RecordingMessage();
var calls = "";
handOver({
  error: error,
  message: message,
  texto: {
    fLeftMargin: function(text, margin) {
      calls += "fLeftMargin " + shown(text) + " " + shown(margin) + "\n";
      return new Array(margin + 1).join(" ") + text;
    },
    fReplaceAll: function(text, oldText, newText) {
      calls += "fReplaceAll " + shown(oldText) + " " + shown(newText) + "\n";
      return oldText == "á" ? "{" + text.replace("\r\n", "") + "}\r\n" : text;
    }
  }
});

checkNoError("an unknown printer", function() {
  channel.sInitializePrinterFileHandle("nadie ñ", "Documento");
  channel.sWriteLn("texto", 0);
  channel.sClosePrinterFileHandle();
});
check("is one message", message.calls,
      "\"No se reconoce el nombre de la impresora: nadie ñ\"\n");

calls = "";
checkNoError("a line", function() {
  channel.sInitializePrinterFileHandle(files + "js.prn", "");
  channel.sWriteLn("Año", 2);
  channel.sClosePrinterFileHandle();
});
check("is a margin and eight replacements", calls,
      "fLeftMargin \"Año\" number 2\n" +
      "fReplaceAll \"á\" \"\u00A0\"\nfReplaceAll \"é\" \"\u201A\"\nfReplaceAll \"í\" \"¡\"\n" +
      "fReplaceAll \"ó\" \"¢\"\nfReplaceAll \"ú\" \"£\"\nfReplaceAll \"ñ\" \"¤\"\n" +
      "fReplaceAll \"Ñ\" \"¥\"\nfReplaceAll \"º\" \"§\"\n");

handOver({error: error, texto: {}, convert: {fNumberToText: 7}});
checkError("an operation that there is not", function() { channel.sWrite("x", 0); }, 438,
           "Object doesn't support this property or method: fReplaceAll < fReplaceInvalidChars < " +
           "sWriteToFileHandle < sWrite");
check("its trail", error.trail,
      "clsUtilImp|fReplaceInvalidChars|Lib. Impresión Texto|number 2|number 0|\"\"|number 0|9\n" +
      "clsUtilImp|sWriteToFileHandle|Lib. Impresión Texto|number 2|number 0|\"\"|number 0|9\n" +
      "clsUtilImp|sWrite|Lib. Impresión Texto|number 2|number 0|\"\"|number 0|9\n");

// What a text service answers, and what comes of it.
function writeAnswered(answer) {
  return function() {
    handOver({error: error, texto: {fReplaceAll: function() { return answer; }}});
    channel.sWrite("x", 0);
  };
}
var mismatch = "Type mismatch < fReplaceInvalidChars < sWriteToFileHandle < sWrite";
checkError("null for a text", writeAnswered(null), 13, mismatch);
checkError("an automation object for a text", writeAnswered(channel), 13, mismatch);
checkNoError("a number for a text", writeAnswered(12.5));
checkNoError("a truth value for a text", writeAnswered(true));
checkNoError("undefined for a text", writeAnswered(undefined));

// Numbers come as they are: digits as integers, units as doubles; here both are numbers.
var numbers = [];
handOver({error: error, convert: {fNumberToText: function(number) {
  numbers.push(number);
  return number;
}}});
checkNoError("rules", function() {
  channel.sPrintHorizontalRule(false, 1, 0);
  channel.sPrintVerticalRule(3, false);
});
check("have numbers", numbers.join(), "0,1,2,3,4,5,6,7,8,9,1,2,3");

// An error of JScript's own; its number arrives, its text where the engine hands it out.
function numberOf(action) {
  try {
    action();
  } catch (raised) {
    return raised.number;
  }
  return "no error";
}
function failing(fail) {
  return function() {
    handOver({error: error, texto: {fReplaceAll: fail}});
    channel.sWrite("x", 0);
  };
}
check("an error with a number", numberOf(failing(function() {
  throw new Error(-2147220991, "descripción");
})), -2147220991);
check("a classic number", numberOf(failing(function() {
  throw new Error(-2146828282, "desbordamiento");
})), -2146828282);
check("the library's error on its way through a script", numberOf(failing(function() {
  channel.SetMaxLinPage(-1);
})), -2146828282);
check("an object that is none", numberOf(failing(function() {
  var none;
  none.member();
})) != "no error", true);
finish(17);
