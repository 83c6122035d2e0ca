#include "check.h"

#include "blobxlate.h"
#include "input.h"

namespace bxtool {

namespace {

struct Printer {
    FILE *out;
    const char *prefix;
};

void print_finding(void *context, const BlobxlateFinding *finding)
{
    const auto *p = static_cast<const Printer *>(context);
    std::fprintf(p->out, "%s%s: %s\n", p->prefix, finding->pcPath, finding->pcText);
}

} // namespace

int print_findings(int type, blob_attr *msg, FILE *out, const char *prefix)
{
    Printer printer{out, prefix};
    return BLOBXLATE_Check(type, msg, &print_finding, &printer);
}

int check(const MessageInfo &info, const char *path)
{
    BlobBuf msg;
    if (!read_message(path, msg))
        return 2;
    return print_findings(info.type, msg.buf.head, stdout, "") > 0 ? 1 : 0;
}

} // namespace bxtool
