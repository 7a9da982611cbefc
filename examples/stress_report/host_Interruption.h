#ifndef ORV_STRESS_REPORT_HOST_INTERRUPTION_H
#define ORV_STRESS_REPORT_HOST_INTERRUPTION_H

class wip_MessageReporter;

/// Makes Ctrl-C a wish that the reporter knows of, for as long as this lives: work asks its wip_WIP at each step, and
/// stops. A second Ctrl-C ends the program at once. One at a time.
class [[nodiscard]] host_Interruption {
public:
    explicit host_Interruption(wip_MessageReporter& reporter);
    ~host_Interruption();
    host_Interruption(const host_Interruption&) = delete;
    host_Interruption& operator=(const host_Interruption&) = delete;

private:
    void (*_before)(int);
};

#endif
