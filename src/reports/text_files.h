// The port for template files: text files, read line by line.
//
// Files are plain 8-bit text in the system's code page, one character for each byte.  A line ends
// with LF or CR LF, which are not part of it; a CR by itself stays in the line, like every other
// byte.  What follows the last line end is a line unless it is empty, so an empty file has none.
//
//   Windows      the scripting runtime's file-system object (platform/win32/text_files.cpp)
//   elsewhere    a reader of our own that answers the same (platform/posix/text_files.cpp)
//
// Threads: one.  Raises: 53 when there is no such file, 70 when it may not be read, 76 when its
// folder is missing and the platform can tell; 57 when reading fails; 7.
#pragma once

#include "frame/object.h"
#include "frame/text.h"

namespace tarvo {

// An open file, before its first line.
class TextStream : public Object {
 public:
  virtual bool AtEndOfStream() = 0;

  // Replaces `line` by the next one.  Raises: 62 at the end.
  virtual void ReadLine(Text& line) = 0;

  // Lets go of the file.  REQUIRES: called once, also after an error; the stream is not used
  // afterwards, for the port may give it out again for the next file.
  virtual void Close() = 0;
};

class TextFiles : public Object {
 public:
  // A stream of its own for each call, the same file twice too.
  virtual Ref<TextStream> OpenTextFile(TextView path) = 0;
};

namespace platform {
Ref<TextFiles> makeTextFiles();
}  // namespace platform

}  // namespace tarvo
