// Writes down what it finds around its own executable, for the test that lays the folders out.
#include "core/paths/EnginePaths.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/TextConversion.h"

#include <fstream>

int main() {
    using namespace ovrin;
    std::ofstream output(PathFromWide(EnginePaths::GetEnvironmentValue("OVRIN_PROBE_OUTPUT").value()),
                         std::ios::binary);
    for (const auto &path :
         {EnginePaths::GetExecutablePath(), EnginePaths::GetEngineRoot(), EnginePaths::ResolveAssetPath("x")}) {
        output << WideToUtf8(WideFromPath(path)) << '\n';
    }
    return 0;
}
