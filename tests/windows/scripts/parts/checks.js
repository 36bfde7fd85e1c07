// The checks of a test script; see checks.vbs, which says more.
var checkReport = new ActiveXObject("Scripting.FileSystemObject").CreateTextFile(
    WScript.Arguments(0), true, true);

function visible(text) {
  var result = "";
  for (var i = 0; i < text.length; ++i) {
    var code = text.charCodeAt(i);
    result += code < 32 ? "<" + (code < 16 ? "0" : "") + code.toString(16).toUpperCase() + ">"
                        : text.charAt(i);
  }
  return result;
}

// A value with its kind: number 3, "abc", null.
function shown(value) {
  if (value === null || value === undefined) return String(value);
  if (typeof value == "string") return "\"" + visible(value) + "\"";
  return typeof value == "object" ? "(object)" : typeof value + " " + value;
}

function reportCheck(shows, expected, actual) {
  checkReport.WriteLine(actual == expected
                            ? "ok " + shows
                            : "FAILED " + shows + ": expected " + expected + ", was " + actual);
}

function check(shows, actual, expected) { reportCheck(shows, shown(expected), shown(actual)); }

// The error that the action raises: the classic number, or the whole status where it is none.
function checkError(shows, action, number, description) {
  var actual = "no error";
  try {
    action();
  } catch (error) {
    var classic = (error.number & 0xFFFF0000) == (0x800A0000 | 0);
    actual = (classic ? error.number & 0xFFFF : error.number) + " \"" +
             visible(error.message) + "\"";
  }
  reportCheck(shows, number + " \"" + visible(description) + "\"", actual);
}

function checkNoError(shows, action) {
  var actual = "no error";
  try {
    action();
  } catch (error) {
    actual = error.number + " \"" + visible(error.message) + "\"";
  }
  reportCheck(shows, "no error", actual);
}

function finish(numberOfChecks) {
  checkReport.WriteLine("end " + numberOfChecks);
  checkReport.Close();
  WScript.Quit(42);
}

