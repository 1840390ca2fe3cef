#include "monitor/FramePictures.h"

#include "vesta/File.h"

namespace
{
constexpr size_t kMostPath = 300; // characters
} // namespace

const String& FrameState(const FarmJob& job, int number)
{
    if (number <= job.framesDone)
    {
        return state_Done;
    }
    const bool           isNext = number == job.framesDone + 1;
    const FarmJob::Phase phase = job.CurrentPhase();
    if (phase == FarmJob::kEnded || (isNext && phase != FarmJob::kWaits))
    {
        return job.state;
    }
    return state_Waiting;
}

Path PictureOf(const FarmJob& job, int number)
{
    const JobFrames::Frame* const frame = job.frames.Find(number);
    if (!frame || frame->file.empty())
    {
        return Path();
    }
    return frame->file[0] == '/' ? Path(frame->file)
                                 : Path(job.job->GetParam(p_Folder)) / frame->file;
}

String PictureProblem(const FarmJob& job, int number)
{
    if (number > job.framesDone)
    {
        return SFormat("Frame %d is not done yet.", number);
    }
    const Path picture = PictureOf(job, number);
    if (picture.IsEmpty())
    {
        return SFormat("Frame %d was done before this monitor listened, or its program did not "
                       "name the file. The job's output folder is:\n",
                       number) +
               OneLine(job.job->GetParam(p_Folder), kMostPath);
    }
    return File::Exists(picture) && !File::IsFolder(picture)
               ? String()
               : SFormat("The picture of frame %d is not there:\n", number) +
                     OneLine(picture.Text(), kMostPath);
}
