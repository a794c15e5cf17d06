#pragma once

namespace lantos::test {

class FaultyCalls;

// Who is asked before a call on a file goes to the system; null for nobody.
void Watch(FaultyCalls* calls);
FaultyCalls* Watching();

}  // namespace lantos::test
