#include "job_history.h"

#include "job_texts.h"
#include "machine_state.h"
#include "message_label.h"
#include "panel_list.h"
#include "panel_view_ids.h"
#include "theme.h"
#include "units.h"

#include <QVBoxLayout>

namespace velarion {

job_history::job_history(const machine_state& machine)
    : machine_(machine)
    , list_(new panel_list) {
    auto* heading = new message_label(text_role::CAPTION);
    heading->set_color(colors::quiet_text);
    heading->set_message(MSG_NORMAL_JOBLIST_TITLE_JOB_HISTORY);
    list_->setObjectName(QStringLiteral("history"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(px(grid::space));
    column->addWidget(heading);
    column->addWidget(list_, 1);
    connect(&machine, &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

void job_history::refresh() {
    std::vector<list_row> rows;
    for (auto job = machine_.jobs().rbegin(); job != machine_.jobs().rend(); ++job) {
        if (job->state != job_state::RUNNING && job->state != job_state::PAUSED) {
            rows.push_back({QStringLiteral("job_%1").arg(job->number), QLatin1String(picture_of(job->kind)),
                            short_text_of(*job), state_of(*job)});
        }
    }
    list_->set_rows(rows);
}

} // namespace velarion
