// An image of a recipe is checked, started, and run for a hundred cycles under the input that the rest of the
// bytes tell.
#include "check/image_check.h"
#include "recipe.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::RecipeBook book;
    fuzz::Input input(data, size);
    book.load(input);
    if (size % 4 == 0) check::CheckImage({}); // not each time: it takes as long as the panel
    if (!fuzz::Start()) return 0;
    for (int cycle = 0; cycle < 100; ++cycle) {
        if (!input.empty()) fuzz::Act(input);
        fuzz::RunCycle();
    }
    return 0;
}
