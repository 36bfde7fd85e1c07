//uses checks.js
// The arguments of JScript: always by value, numbers as 32-bit integers or doubles.
var channel = new ActiveXObject("LibTarvoRdpCI.clsUtilImp");
var start = new ActiveXObject("LibTarvoRdpCI.clsInitLibTarvoRpd");
var nothing = {};
var margins = [];
start.sInitializeInternalGlobalClasses(nothing, nothing, {
  fLeftMargin: function(text, margin) {
    margins.push(margin);
    return text;
  },
  fReplaceAll: function(text) { return text; }
}, nothing, nothing, nothing, nothing, nothing, nothing, nothing);

checkNoError("numbers of every kind", function() {
  channel.sWrite("x", 1);
  channel.sWrite("x", 2.5);
  channel.sWrite("x", 255);
  channel.sWrite("x", "12");
  channel.sWrite("x", undefined);
  channel.sWrite("x", false);
});
check("are bytes; two of them no margin", margins.join(), "1,2,255,12");
checkNoError("a by-reference argument", function() { channel.sSkipNPoints(2); });
check("results", typeof channel.GetMaxLinPage() + " " + typeof channel.GetChrBold() + " " +
                 typeof channel.GetCanPrintInTextMode(), "number string boolean");
check("names without regard to case, and made while running", function() {
  channel["SETCHR" + "bold"]("\x1BE\0");
  return channel["getchr" + "BOLD"]();
}(), "\x1BE\0");

checkError("null for a number", function() { channel.sWrite("x", null); }, 13,
           "Type mismatch: valLeftMargin");
checkError("null for a text", function() { channel.sWrite(null, 0); }, 13,
           "Type mismatch: valText");
checkError("an automation object for a text", function() { channel.sWrite(channel, 0); }, 13,
           "Type mismatch: valText");
checkError("a text that is no number", function() { channel.sWrite("x", "siete"); }, 13,
           "Type mismatch: valLeftMargin");
checkError("a number that does not fit", function() { channel.sWrite("x", 256); }, 6,
           "Overflow: valLeftMargin");
checkError("a double that does not fit", function() { channel.sWrite("x", 1e10); }, 6,
           "Overflow: valLeftMargin");
checkError("null for an object", function() { start.sInitializePrintLibrary(channel, null); }, 13,
           "Type mismatch: refInsUtReport");

// The statuses that an engine tells in its own words.
function numberOf(action) {
  try {
    action();
  } catch (raised) {
    return raised.number;
  }
  return "no error";
}
check("too few arguments", numberOf(function() { channel.sWrite("x"); }), 0x8002000F | 0);
check("too many arguments", numberOf(function() { channel.sWrite("x", 0, 0); }), 0x8002000E | 0);
check("an unknown member", numberOf(function() { channel.noSuchOperation(); }), 0x800A01B6 | 0);
finish(15);
