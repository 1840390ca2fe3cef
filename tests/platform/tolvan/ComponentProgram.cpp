// A program of the component named on its command line: answers yes to the request "COLORS", no to
// any other, until its standard input ends. Prints the requests that it gets.

#include "tolvan/ComponentServer.h"
#include "vesta/Log.h"

#include <cstdio>

int main(int argc, char** argv)
{
    Log::s_GlobalLog->SetLevels(log_Fatal, log_Fatal);
    const ComponentServer server(argc > 1 ? argv[1] : "",
                                 [](const String& request)
                                 {
                                     std::printf("%s\n", request.c_str());
                                     std::fflush(stdout);
                                     return request == "COLORS";
                                 });
    std::puts(server.IsListening() ? "ready" : "deaf");
    std::fflush(stdout);
    while (std::getchar() != EOF)
    {
    }
    return 0;
}
