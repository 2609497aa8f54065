__attribute__((visibility("default"))) int interpreterVersion();

int interpreterVersion()
{
    return 910;
}
