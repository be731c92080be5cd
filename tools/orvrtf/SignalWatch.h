#ifndef ORVRTF_SIGNALWATCH_H
#define ORVRTF_SIGNALWATCH_H

#include <QSocketNotifier>

#include <functional>

/*!
    Tells an event loop that SIGHUP, SIGINT or SIGTERM has come, instead of letting it end the program. There
    is one at a time.
*/
class SignalWatch {
public:
    /*! Lets \a callback be called from the event loop. */
    explicit SignalWatch(const std::function<void()>& callback);
    ~SignalWatch();
    /*! The last signal that has come, whether or not the event loop knows; 0 for none. */
    int signal() const;

private:
    Q_DISABLE_COPY(SignalWatch)

    /*! Calls back when the handler has written into the pipe. */
    class Notifier : public QSocketNotifier {
    public:
        Notifier(int descriptor, const std::function<void()>& callback);

    protected:
        bool event(QEvent* event) override;

    private:
        std::function<void()> m_callback;
    };

    Notifier m_notifier;
};

#endif
