#ifndef SERVICE_KEEPER_H
#define SERVICE_KEEPER_H

#include <QObject>
#include <QProcess>
#include <QStringList>

#include <sys/types.h>
#include <unistd.h>

namespace velarion {

class device_link;

/** Where the panel device service of a simulator comes from. */
enum class service_source {
    AUTO, ///< the one that runs, else one of its own
    NONE, ///< whatever is there
    OWN
};

/** A child that ends with this process, however that ends. */
class bound_process : public QProcess {
protected:
    void setupChildProcess() override;

private:
    const pid_t parent_ = ::getpid();
};

/**
 * Starts and ends the panel device service, and has it misbehave. Nothing waits for it. A service that this
 * object started ends with it; another one can be ended too.
 */
class service_keeper : public QObject {
    Q_OBJECT

public:
    /** @param link  outlives this object */
    explicit service_keeper(device_link& link);
    ~service_keeper() override;

    /** Goes to work, and the link with it. */
    void begin(service_source source);

    /**
     * Carries out a command as people write it: start, stop, kill, pause, continue, restart, delay MS,
     * refuse RESULT, drop, crash, normal.
     *
     * @return what is wrong, or an empty text: it is on its way
     */
    QString run(const QStringList& words);
    /** The commands, for people. */
    static QString usage();

    /** Whether the service is one that this object started. */
    bool is_own() const { return own_.state() != QProcess::NotRunning; }

Q_SIGNALS:
    /** The own service cannot be started, or ended with an error. */
    void failed(const QString& text);

private:
    QString start();
    QString stop(std::initializer_list<int> signals);
    QString send_signals(std::initializer_list<int> signals);
    QString restart();
    void go_on();
    void take_end(int exit_code, QProcess::ExitStatus status);
    pid_t find_process() const;

    device_link& link_;
    bound_process own_;
    bool has_served_ = false; ///< the own one
    bool is_leaving_ = false; ///< the own one, which may take a while after it was last heard of
    bool restarts_ = false;
};

/** @return whether the word is auto, none or own */
bool read_service_source(const QString& word, service_source& source);

} // namespace velarion

#endif
