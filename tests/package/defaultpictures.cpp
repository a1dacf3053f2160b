// Looks for the pictures that the widgets name themselves, in the sizes that their headers tell.

#include <QApplication>
#include <QPixmap>

#include <cstdio>

struct Picture
{
    const char *name;
    int width;
    int height;
};

static const Picture pictures[] = {
    {"arrow_next_focus", 6, 10}, {"arrow_next_nor", 6, 10}, {"arrow_prev_focus", 6, 10}, {"arrow_prev_nor", 6, 10},
    {"number_b_bg", 16, 16},     {"number_bg", 16, 16},     {"page_off", 6, 6},          {"tna_bg", 220, 44},
};

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    for (const Picture &picture : pictures) {
        const QString file = QStringLiteral(":/resource/images_l2/%1.png").arg(QLatin1String(picture.name));
        if (QPixmap(file).size() != QSize(picture.width, picture.height)) {
            std::printf("%s is missing or has another size\n", qPrintable(file));
            return 1;
        }
    }
    std::printf("no picture is missing\n");
    return 0;
}
