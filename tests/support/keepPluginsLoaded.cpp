// Compiled into programs that run under the leak checker. It keeps plugins loaded: memory that only a plugin's
// variables reference counts as leaked once the plugin is unloaded, and the report could not name its functions.
extern "C" int dlclose(void* /*handle*/)
{
    return 0;
}
