// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

/// The models of many formats that are installed for tests, and tests over them, one test per folder.
class ksModelCollection : public testing::TestWithParam<std::string>
{
public:
    /// Why a test is skipped when it is not installed.
    static constexpr const char *Missing =
        "there are no models in " KS_MODEL_COLLECTION ": the package assimp-testmodels is missing";

    /// The folders of the collection, or one empty name when it is not installed.
    static std::vector<std::string> formatFolders()
    {
        std::vector<std::string> names;
        for (const QString &name :
             QDir(collection()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
            names.push_back(name.toStdString());
        if (names.empty())
            names.emplace_back();
        return names;
    }

    /// The files of a folder, and of those in it, that are tried.
    static QStringList filesOf(const std::string &folder)
    {
        return filesToTry(collection() + QLatin1Char('/') + QString::fromStdString(folder));
    }

    /// Every n-th of these, where n is what the environment says; all of them when it says nothing.
    static QStringList sampleOf(const QStringList &files)
    {
        const int step = std::max(1, qEnvironmentVariableIntValue("KS_MODEL_STEP"));
        QStringList sample;
        for (int i = 0; i < files.size(); i += step)
            sample += files[i];
        return sample;
    }

    static std::string testName(const testing::TestParamInfo<std::string> &info)
    {
        return info.param.empty() ? "none" : 'f' + info.param;
    }

protected:
    void SetUp() override
    {
        if (GetParam().empty())
            GTEST_SKIP() << Missing;
    }

    static QStringList files() { return filesOf(GetParam()); }

private:
    /// Larger files hold more of the same and take the time of all others together.
    static constexpr qint64 LargestFile = 40000;

    /// A folder with more files than that holds variants of one model.
    static constexpr int MostFilesOfAFolder = 10;

    static QString collection() { return QStringLiteral(KS_MODEL_COLLECTION); }

    /// It announces a number of vertices for which its reader takes 16 GB of memory before it refuses it.
    static QString bomb() { return QStringLiteral("OutOfMemory.off"); }

    static QStringList filesToTry(const QString &folder)
    {
        QStringList chosen;
        const QDir directory(folder);
        for (const QFileInfo &file : directory.entryInfoList(QDir::Files, QDir::Name))
            if (file.size() <= LargestFile && file.fileName() != bomb() && chosen.size() < MostFilesOfAFolder)
                chosen += file.filePath();
        for (const QFileInfo &below : directory.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
            chosen += filesToTry(below.filePath());
        return chosen;
    }
};
