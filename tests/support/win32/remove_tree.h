// The end of a test's folder.
#pragma once

#include <string>

namespace ordelan::test {

// Removes a folder (an absolute path) with all that is in it, however deep it lies: MinGW's own way
// to do so stops where paths get longer than they used to be. Links are removed, what they lead to
// stays. What cannot be removed is left.
void remove_tree(const std::wstring& folder);

}  // namespace ordelan::test
