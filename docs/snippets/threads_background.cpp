#include <ZyCore.h>

#include <future>
#include <iostream>
#include <memory>

int main()
{
    auto const thread = ZyAsyncThread::Create([] { throw ZyNotFoundException("the node \"out\""); });

    // The handle is the subscription: whoever drops it hears nothing any more. What the callback uses belongs
    // to it, since it may still be leaving when the other side has stopped waiting.
    auto const ended = std::make_shared<std::promise<void>>();
    auto const handle = thread->createCallback(
        [ended](ZyAsyncThread::Status const & status, ZySharedPtr<ZyAsyncThread> const &) {
            if (status != ZyAsyncThread::Running) {
                ended->set_value();
            }
        });

    thread->run(); // returns at once
    ended->get_future().wait();
    if (thread->status() == ZyAsyncThread::Failed) {
        std::cout << thread->error().c_str() << '\n';
    }
}
