#pragma once

namespace tarvokol {

// The input check that stands before every calculation: copies `ProjectRecord` into `WorkingParameters`,
// deriving what the analysis needs, then tests the record. The first test that fails shows its message and
// gives false. The working parameters are written either way. More than 20 holes raise "Subscript out of
// range".
bool PrepareWorkingParameters();

}  // namespace tarvokol
