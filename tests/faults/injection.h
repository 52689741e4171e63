// Lets the library run out of memory, or the system refuse it a file, at a chosen point. The program is
// linked with the library's objects; operator new is replaced, and the linker hands the calls of the C
// library to here.
#pragma once

namespace faults {

enum class toperation { allocation, open, read, write, close, poll };
enum class teffect {
  fails,         // with what the system reports where memory, a disk or a device is at its end
  failsforgood,  // so do all after it
  interrupted    // not of memory: part of it is done, or nothing with EINTR
};

// The next operations of this kind that are met while armed count from 1; number `which` has the effect, 0
// none.
void plan(toperation operation, teffect effect, int which);
// How many have been met, and whether the planned one was among them.
int met();
bool happened();

// Calls of the library are armed, what the test does around them is not.
class tarmed {
 public:
  tarmed();
  ~tarmed();
  tarmed(const tarmed&) = delete;
  tarmed& operator=(const tarmed&) = delete;
};

}  // namespace faults
