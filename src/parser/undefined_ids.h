#pragma once
namespace tamrix::modUtilities {

// Non-zero context IDs without a topic file (FileDefined false); zero-value IDs
// are counted in zeroCount instead.
int UndefinedIDs(int& zeroCount);

}  // namespace tamrix::modUtilities
