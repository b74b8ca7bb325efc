#pragma once

#include "controls/MousePointer.h"
#include "manager/UpdateManager.h"
#include "platform/HeadlessLoop.h"
#include "tests/support/FaultServer.h"
#include "tests/support/ProgramDesktop.h"
#include "updates/UpdatePrompts.h"

#include <gmock/gmock.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmo::test
{

inline constexpr const char* kVersions = "/pub/demo/version.ini";
inline constexpr const char* kManufacturers = "/pub/demo/manufver.ini";

/// A person who answers every question as told.
struct Person final : UpdatePrompts
{
    void Notify(PromptIcon /*icon*/, const std::string& text, const std::string& title) override
    {
        heard.push_back(title + "|" + text);
    }
    QuestionAnswer AskToViewUpdates(const StartupRequest& request,
                                    const std::string& question) override
    {
        heard.push_back(request.caller + "|" + question);
        return answer;
    }
    DialogAnswer ShowUpdateDialog(const ProgramRow& program) override
    {
        heard.push_back(program.Name() + "|" + CellText(program, ProgramColumn::InstalledVersion) +
                        "|" + CellText(program, ProgramColumn::LatestVersion));
        return dialog;
    }

    QuestionAnswer answer = QuestionAnswer::Yes;
    DialogAnswer dialog = DialogAnswer::Download;
    std::vector<std::string> heard;
};

/// An update manager between a vendor's server and a desktop with Loadcalc 8.02.14, and what it tells
/// the window, in order.
class ManagerDesktop : public ProgramDesktop, private ListViewModel::Observer
{
  protected:
    ManagerDesktop()
    {
        m_desktop.SetPolicy("WebServer", m_server.Url(""));
        Install({8, 2, 14});
        m_server.Serve(kVersions, "[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\nRevision=15\r\n"
                                  "[News Headlines]\r\nNews|http://vendor.example/\r\n");
        m_server.Serve(kManufacturers, "[Pumps]\r\n1MDBFilename=pumps.mdb\r\n");
        m_manager.emplace(m_loop, m_person, m_pointer, [this](const std::string& address) {
            m_opened.push_back(address);
            return Result<Done>(Done());
        });
        m_files.emplace(m_manager->Lists().Files());
    }
    ~ManagerDesktop() override { m_manager->Programs().List().Observe(nullptr); }

    void Watch()
    {
        ListsFetch& lists = m_manager->Lists();
        ShownLists& shown = m_manager->Shown();
        StatusBoxModel& box = m_manager->StatusBox();
        m_watching = {
            lists.BusyChanged().Add([&] { m_events.emplace_back(lists.Busy() ? "busy" : "idle"); }),
            shown.CountsChanged().Add([&] {
                m_events.push_back(std::to_string(shown.Counts().programs) + " to update");
            }),
            shown.HeadlinesChanged().Add([&] {
                m_events.push_back(std::to_string(shown.Headlines().size()) + " headlines");
            }),
            box.Changed().Add([&] { m_events.push_back(LastLine(box.Text())); }),
        };
        m_manager->Programs().List().Observe(this);
    }

    static std::string LastLine(std::string text)
    {
        text.resize(text.size() - std::min<std::size_t>(text.size(), 2));
        return text.substr(text.rfind('\n') + 1);
    }

    std::string Fetch()
    {
        m_manager->FetchLists();
        EXPECT_FALSE(m_manager->Lists().Busy());
        EXPECT_EQ(m_pointer.Shape(), PointerShape::Normal);
        return m_manager->StatusBox().Text();
    }

    /// Does it as work of the loop while the next download of that path is held, then lets that answer.
    void WhileHeld(const char* path, const char* status, const std::function<void()>& action)
    {
        // An empty file would be no list.
        m_server.Play(path, {FaultServer::Hold(), FaultServer::Answer(status, "[Loadcalc 8]")[0]});
        OnceAskedFor(path, m_server.CountOf(path) + 1, action);
    }

    void OnceAskedFor(const char* path, int times, const std::function<void()>& action)
    {
        m_loop.Post([this, path, times, action] {
            if (m_server.CountOf(path) < times)
            {
                return OnceAskedFor(path, times, action);
            }
            action();
            m_server.Release(path);
        });
    }

    std::string LatestVersion()
    {
        return CellText(*m_manager->Programs().Find("Loadcalc 8"), ProgramColumn::LatestVersion);
    }

    void OnRowsChanged() override {}
    void OnColumnsChanged() override {}
    void OnSelectionChanged() override {}
    void OnScrollTo(std::size_t row) override
    {
        m_events.push_back("show row " + std::to_string(row));
    }

    FaultServer m_server;
    platform::HeadlessLoop m_loop;
    Person m_person;
    std::vector<std::string> m_opened; ///< In the browser.
    MousePointer m_pointer;
    std::optional<UpdateManager> m_manager;
    std::optional<FetchedFiles> m_files;
    std::vector<std::string> m_events;
    std::vector<Observers::Subscription> m_watching;
};

} // namespace velmo::test
