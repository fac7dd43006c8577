// SPDX-License-Identifier: LicenseRef-ORVALD
// Runs a fuzz target without a fuzzer's library: on every file of the folders given, and then, with
// "-seconds N" in front, on random changes of them.
#include "fuzz_check.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void run(const std::string& input)
{
    // In memory of its own size, so that a sanitizer sees a read behind the end.
    const std::vector<std::uint8_t> bytes(input.begin(), input.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

std::string changed(std::string text, const std::vector<std::string>& inputs, std::mt19937& random)
{
    const auto below = [&random](std::size_t end) { return end == 0 ? 0 : random() % end; };
    for (std::size_t changes = 1 + below(4); changes != 0; --changes) {
        const std::size_t at = below(text.size() + 1), count = below(text.size() - at + 1);
        const std::string& other = inputs[below(inputs.size())];
        switch (random() % 5) {
        case 0:
            if (at < text.size()) text[at] = static_cast<char>(random());
            break;
        case 1: text.erase(at, std::min<std::size_t>(count, 1 + below(40))); break;
        case 2: text.insert(at, other.substr(below(other.size()), 1 + below(60))); break;
        case 3: text.insert(at, text.substr(below(text.size()), 1 + below(200))); break;
        default: text.resize(at); break;
        }
        if (text.size() > 200000) text.resize(200000);
    }
    return text;
}

} // namespace

int main(int argc, char** argv)
{
    int first = 1;
    double seconds = 0.0;
    if (argc > 2 && std::string(argv[1]) == "-seconds") {
        seconds = std::stod(argv[2]);
        first = 3;
    }
    std::vector<std::string> inputs;
    for (int i = first; i < argc; ++i)
        for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[i])) {
            if (!entry.is_regular_file()) continue;
            std::ifstream in(entry.path(), std::ios::binary);
            inputs.emplace_back(std::istreambuf_iterator<char>(in),
                                std::istreambuf_iterator<char>());
            run(inputs.back());
        }
    if (inputs.empty()) {
        std::fputs("no input\n", stderr);
        return 1;
    }
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    std::mt19937 random(std::random_device{}());
    std::size_t runs = 0;
    for (; Clock::now() < end; ++runs) {
        const std::string input = changed(inputs[random() % inputs.size()], inputs, random);
        // Written first: a crash leaves it behind.
        std::ofstream("crash-input", std::ios::binary) << input;
        run(input);
    }
    if (runs != 0) std::filesystem::remove("crash-input");
    std::printf("%zu inputs, %zu changed ones\n", inputs.size(), runs);
    return 0;
}
