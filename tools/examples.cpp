#include "examples.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace bxtool {

namespace {

std::string examples_dir()
{
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path program_dir = fs::read_symlink("/proc/self/exe", ec).parent_path();
    if (!ec && fs::equivalent(program_dir, BLOBXLATE_BUILD_DIR, ec))
        return BLOBXLATE_SOURCE_EXAMPLES;
    return (program_dir / BLOBXLATE_INSTALLED_EXAMPLES).lexically_normal().string();
}

} // namespace

std::string example_path(int type)
{
    char name[32];
    std::snprintf(name, sizeof name, "/type%03d.json", type);
    return examples_dir() + name;
}

} // namespace bxtool
