// A host's commands reach a running panel. Behind the recipe an input is a row of frames, each behind a byte
// with its size; one of no bytes stands for something that a user does. A cycle follows each.
#include "recipe.h"
#include "store/host_command.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::RecipeBook book;
    fuzz::Input input(data, size);
    book.load(input);
    if (!fuzz::Start()) return 0;
    for (int cycle = 0; cycle < 100 && !input.empty(); ++cycle) {
        if (const std::size_t length = fuzz::TakeByte(input); length > 0) {
            const auto frame = input.first(std::min(length, input.size()));
            panel::HostCommand(frame);
            input = input.subspan(frame.size());
        } else {
            fuzz::Act(input);
        }
        fuzz::RunCycle();
    }
    return 0;
}
