#pragma once

#include "platform/AsyncRead.h"
#include "platform/HttpGet.h"
#include "platform/MessageLoop.h"
#include "platform/Result.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace velmo
{

/**
    The download control: reads one web address at a time into memory, while the message loop runs,
    and tells the outcome through events. For the loop's thread; the loop and the listener outlive it.

    Every start ends in exactly one DownloadComplete or DownloadFailed, unless another start replaces
    it first: then nothing more is heard of it. Destroying the control ends its download silently.
 */
class NetGrab final : private platform::AsyncRead::Listener
{
  public:
    /// Who hears of the download. Counts are bytes.
    class Listener
    {
      public:
        virtual ~Listener() = default;
        virtual void DownloadComplete(std::int32_t nBytes) = 0;
        /// The internet's codes, see platform/HttpGet.h; 12017 after DownloadCancel().
        virtual void DownloadFailed(std::int32_t errNum, const std::string& errDesc) = 0;
        /// At most 20 times a second.
        virtual void DownloadProgress(std::int32_t nBytes) = 0;
    };

    NetGrab(platform::MessageLoop& loop, Listener& listener,
            platform::TickSource ticks = platform::SteadyTicks,
            const platform::HttpLimits& limits = {});
    ~NetGrab() override;

    /// From the start until the download's own end; asking for cancellation alone does not end it.
    [[nodiscard]] bool Busy() const { return m_startTick != 0; }

    /// The bytes of the last completed download, or those reported so far of a running one; empty
    /// after a failed one. A view, valid until the next event or start. It holds the count of bytes.
    [[nodiscard]] std::span<const std::byte> Bytes() const;

    /// How long the last completed or failed download took, in milliseconds; 0 while one runs.
    [[nodiscard]] std::int32_t Duration() const { return m_duration; }

    /// Asks for the running download's end; DownloadFailed follows through the loop.
    void DownloadCancel();

    /// Starts reading @a url, after cancelling a running download. An empty one does nothing.
    /// @a mode are the platform's read options; since a read never comes from a cache here, the one
    /// in use (16: fresh copy) asks for what happens anyway, and any value does.
    void DownloadStart(const std::string& url, std::int32_t mode);

    /// Writes the received bytes to a file (a Windows path), replacing any file of that name. False,
    /// and nothing touched, without bytes; false when the file cannot be written, and then there is
    /// none: see LastSaveFailure().
    [[nodiscard]] bool SaveAs(const std::string& fileName);

    /// The system's reason of the last SaveAs() that could not write; code 0 when none failed so.
    [[nodiscard]] const Error& LastSaveFailure() const { return m_lastSaveFailure; }

  private:
    void ReadProgress(std::size_t count) override;
    void ReadComplete(std::size_t count, const Result<Done>& outcome) override;

    platform::MessageLoop& m_loop;
    Listener& m_listener;
    platform::TickSource m_ticks;
    platform::HttpLimits m_limits;
    std::uint32_t m_startTick = 0; ///< 0 = idle.
    std::int32_t m_byteCount = 0;
    std::int32_t m_duration = 0;
    std::shared_ptr<const platform::ByteStore> m_received;
    Error m_lastSaveFailure;
    std::unique_ptr<platform::AsyncRead> m_read;
};

} // namespace velmo
