// Loaded into ippeveprinter, in the place of the library by which it announces its printer on the
// network: it ends where nothing answers there, as on most machines that run tests. Here everything
// succeeds, and nobody is told.

namespace {

int something;  // what a pointer must lead to

}  // namespace

extern "C" {

void *avahi_threaded_poll_new() { return &something; }
void *avahi_threaded_poll_get(void *) { return &something; }
int avahi_threaded_poll_start(void *) { return 0; }
void avahi_threaded_poll_lock(void *) {}
void avahi_threaded_poll_unlock(void *) {}

void *avahi_client_new(void *, int, void *, void *, int *) { return &something; }
int avahi_client_errno(void *) { return 0; }
const char *avahi_client_get_host_name_fqdn(void *) { return "localhost"; }

void *avahi_entry_group_new(void *, void *, void *) { return &something; }
int avahi_entry_group_add_service_strlst(void *, ...) { return 0; }
int avahi_entry_group_add_service_subtype(void *, ...) { return 0; }
int avahi_entry_group_commit(void *) { return 0; }
int avahi_entry_group_free(void *) { return 0; }

}  // extern "C"
