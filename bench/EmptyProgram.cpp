#include "controls/MousePointer.h"
#include "controls/UserPrompts.h"
#include "manager/UpdateManager.h"
#include "platform/HeadlessLoop.h"

namespace
{

class NoPrompts final : public velmo::UserPrompts
{
  public:
    void Notify(velmo::PromptIcon /*icon*/, const std::string& /*text*/,
                const std::string& /*title*/) override
    {}
};

} // namespace

/// A program that is linked like VelmoUpd and does nothing: what starting costs at least.
int main(int argc, char** /*argv*/)
{
    constexpr int kNever = 1000;
    if (argc > kNever)
    {
        velmo::platform::HeadlessLoop loop;
        NoPrompts prompts;
        velmo::MousePointer pointer;
        velmo::UpdateManager(loop, prompts, pointer).FetchLists();
    }
    return 0;
}
