// What a client names when it starts a report.
#pragma once

#include "frame/text.h"

namespace tarvo {

struct ReportNames {
  Text reportTitle;        // the job's name, and part of captions
  Text templateName;       // without folder and ".ID"
  Text templateDirectory;  // ends with its separator: the name follows it directly

  // Kept; no step of a report reads them back.
  Text fileNameTxt;
  Text userPrefix;
};

// "a" for an empty one.
inline Text fileNameTxtOf(TextView given) { return Text(given.empty() ? u"a" : given); }

// "Infor" for an empty one; an underscore follows, unless there is one in it.
inline Text userPrefixOf(TextView given) {
  Text prefix(given.empty() ? u"Infor" : given);
  if (prefix.find(u'_') == Text::npos) prefix += u'_';
  return prefix;
}

}  // namespace tarvo
