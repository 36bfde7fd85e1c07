// Compiled once for all tests: the headers in its target's list.
